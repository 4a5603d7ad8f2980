#include "control/tab_strips.h"

namespace pelkedit {
namespace {

constexpr std::int32_t kStripHeight = 21;

constexpr TabBand kExpertBands[] = {{tab::kEssentials, 0, 81},
                                    {tab::kSalesAdvisor, 82, 162},
                                    {tab::kSalesEnvironment, 163, 263},
                                    {tab::kIboInfo, 264, 347},
                                    {tab::kIboNote, 348, 404}};
constexpr TabBand kBasicBands[] = {{tab::kEssentials, 0, 82},
                                   {tab::kSalesAdvisor, 83, 163},
                                   {tab::kIboInfo, 164, 247},
                                   {tab::kIboNote, 248, 304}};
constexpr TabBand kPhaseBands[] = {
    {tab::kProbe, 0, 43}, {tab::kProve, 44, 88}, {tab::kClose, 89, 127}};

const TabStrip kExpert{101, 405, kStripHeight, kExpertBands};
const TabStrip kBasic{106, 305, kStripHeight, kBasicBands};
const TabStrip kPhases{110, 128, kStripHeight, kPhaseBands};

}  // namespace

const TabBand& TabStrip::BandAt(std::int32_t x) const {
  for (const TabBand& band : bands) {
    if (x <= band.last) return band;
  }
  return bands.back();
}

const TabBand* TabStrip::BandOf(std::int32_t tabIndex) const {
  for (const TabBand& band : bands) {
    if (band.tab == tabIndex) return &band;
  }
  return nullptr;
}

std::int32_t TabStrip::PictureOf(std::int32_t tabIndex) const {
  const TabBand* band = BandOf(tabIndex);
  if (band == nullptr) return 0;
  return firstPicture + static_cast<std::int32_t>(band - bands.data());
}

bool TabStrip::HasPicture(std::int32_t pictureId) const {
  return pictureId >= firstPicture &&
         pictureId < firstPicture + static_cast<std::int32_t>(bands.size());
}

const TabStrip& ExpertMainStrip() {
  return kExpert;
}
const TabStrip& BasicMainStrip() {
  return kBasic;
}
const TabStrip& PhaseStrip() {
  return kPhases;
}
const TabStrip& MainStrip(bool expert) {
  return expert ? kExpert : kBasic;
}

}  // namespace pelkedit
