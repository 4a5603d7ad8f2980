#include "app/record_words.h"

#include <QDate>
#include <QLocale>
#include <map>

#include "contracts/names.h"
#include "products/product_text.h"
#include "tabs/environment/scales.h"

namespace pelkor::desktop {
namespace {

using pelkedit::Variant;
namespace prop = pelkedit::prop;

enum class Kind { kText, kLevel, kScale, kYesNo, kDate, kStatus, kMoney, kResult };

struct Wording {
  const char* caption;
  Kind kind = Kind::kText;
  const pelkedit::Scale& (*scale)() = nullptr;
};

const std::map<std::string, Wording>& Wordings() {
  using pelkedit::scale::Budget;
  using pelkedit::scale::Familiarity;
  using pelkedit::scale::Funding;
  using pelkedit::scale::Level;
  using pelkedit::scale::Proof;
  using pelkedit::scale::Relationship;
  using pelkedit::scale::Urgency;
  static const std::map<std::string, Wording> wordings = {
      {prop::WIH, {"Will It Happen?", Kind::kLevel}},
      {prop::WWGI, {"Will We Get It?", Kind::kLevel}},
      {prop::WwihDate, {"When Will It Happen?", Kind::kDate}},
      {prop::StartDate, {"Start Date", Kind::kDate}},
      {prop::CloseDate, {"Close Date", Kind::kDate}},
      {prop::Status, {"Status", Kind::kStatus}},
      {prop::ExpertMode, {"Expert Mode", Kind::kYesNo}},
      {prop::UserPriority, {"Your Priority"}},
      {prop::IboNumber, {"IBO Number"}},
      {prop::SEnvLevelNeed, {"Established need?", Kind::kScale, Level}},
      {prop::SEnvSolMatch, {"Solution Match?", Kind::kScale, Level}},
      {prop::SEnvCustomerNeed, {"Level of need?", Kind::kScale, Urgency}},
      {prop::SEnvBudgetMatch, {"Budget match?", Kind::kScale, Budget}},
      {prop::SEnvFunding, {"Funding?", Kind::kScale, Funding}},
      {prop::SEnvFamOrg, {"Familiarity?", Kind::kScale, Familiarity}},
      {prop::SEnvCompPressure, {"Comp. pressure?", Kind::kScale, Level}},
      {prop::Competitors, {"Competitors?"}},
      {prop::DmEconName, {"Econ name"}},
      {prop::DmEconInfluence, {"Econ influence", Kind::kScale, Level}},
      {prop::DmEconImportant, {"Econ important"}},
      {prop::DmEconRelationship, {"Econ relationship", Kind::kScale, Relationship}},
      {prop::DmEconDOP, {"Econ degree of proof", Kind::kScale, Proof}},
      {prop::DmTechName, {"Tech name"}},
      {prop::DmTechInfluence, {"Tech influence", Kind::kScale, Level}},
      {prop::DmTechImportant, {"Tech important"}},
      {prop::DmTechRelationship, {"Tech relationship", Kind::kScale, Relationship}},
      {prop::DmTechDOP, {"Tech degree of proof", Kind::kScale, Proof}},
      {prop::DmUserName, {"User name"}},
      {prop::DmUserInfluence, {"User influence", Kind::kScale, Level}},
      {prop::DmUserImportant, {"User important"}},
      {prop::DmUserRelationship, {"User relationship", Kind::kScale, Relationship}},
      {prop::DmUserDOP, {"User degree of proof", Kind::kScale, Proof}},
      {prop::CloseTC, {"Trial Close?", Kind::kYesNo}},
      {prop::CloseDecided, {"Decided?", Kind::kYesNo}},
      {prop::CloseResult, {"Result", Kind::kResult}},
      {prop::CloseReason, {"Reason?"}},
      {prop::CloseWinBidder, {"Win. bidder?"}},
      {prop::CloseBarriers, {"Barriers?"}},
      {prop::CloseStrategy, {"Strategy?"}},
      {prop::TrialCloseDate, {"Trial close date", Kind::kDate}},
      {prop::TrialCloseCurrent, {"Current trial close"}},
      {prop::TrialCloseFirst, {"Oldest trial close"}},
      {prop::ContactFirstName, {"First Name"}},
      {prop::ContactLastName, {"Last Name"}},
      {prop::ContactCompany, {"Company"}},
      {prop::ContactAddress, {"Address"}},
      {prop::ContactPhone, {"Phone"}},
      {prop::ContactEmail, {"E-mail"}},
      {prop::IboNote, {"IBO Note"}},
      {prop::Products, {"Products"}},
      {prop::TotalValueUnits, {"Total value", Kind::kMoney}},
  };
  return wordings;
}

QString ScaleText(const pelkedit::Scale& scale, std::int32_t code) {
  if (code < 0) return QObject::tr("(no answer)");
  if (static_cast<std::size_t>(code) >= scale.size()) return QString::number(code);
  return QString::fromStdString(scale[static_cast<std::size_t>(code)]);
}

QString Money(pelkor::Currency amount) {
  const QLocale locale;
  const NumberMarks marks{locale.decimalPoint().toStdString(),
                          locale.groupSeparator().toStdString()};
  return QString::fromStdString(FormatAmount(amount, 2, marks));
}

QString LineText(const ProductLine& line) {
  return QObject::tr("%1 x %2 at %3")
      .arg(QString::fromStdString(line.product), Money(line.quantity), Money(line.unitPrice));
}

}  // namespace

QString CaptionOf(const std::string& property, std::optional<std::int32_t> slot) {
  const auto found = Wordings().find(property);
  const QString caption = found == Wordings().end() ? QString::fromStdString(property)
                                                    : QObject::tr(found->second.caption);
  if (!slot) return caption;
  return QObject::tr("%1 (trial close %2)").arg(caption).arg(*slot + 1);
}

QString TextOf(const std::string& property, const Variant& value, pelkedit::IRecord& record) {
  const auto found = Wordings().find(property);
  const Kind kind = found == Wordings().end() ? Kind::kText : found->second.kind;
  switch (kind) {
    case Kind::kLevel: {
      static const pelkedit::Scale levels = {"Low", "Medium", "High"};
      return ScaleText(levels, value.AsLong());
    }
    case Kind::kScale:
      return ScaleText(found->second.scale(), value.AsLong());
    case Kind::kYesNo:
      return value.AsBool() ? QObject::tr("Yes") : QObject::tr("No");
    case Kind::kDate: {
      const pelkedit::Date date = value.AsDate();
      if (date.Year() < 1900) return QObject::tr("(none)");
      return QLocale().toString(QDate(date.Year(), date.Month(), date.Day()), QLocale::ShortFormat);
    }
    case Kind::kStatus:
      return QString::fromStdString(record.StatusText(value.AsLong()));
    case Kind::kMoney: {
      // The total is kept in two properties, whole units and hundredths.
      const double total = record.Get(prop::TotalValueUnits).AsDouble() +
                           record.Get(prop::TotalValueHundredths).AsDouble() / 100.0;
      return QLocale().toString(total, 'f', 2);
    }
    case Kind::kResult: {
      static const pelkedit::Scale results = {"", "Won", "Lost"};
      const QString text = ScaleText(results, value.AsLong());
      return text.isEmpty() ? QObject::tr("(none)") : text;
    }
    case Kind::kText:
      break;
  }
  if (value.Type() == pelkedit::VariantType::kString)
    return QString::fromStdString(value.AsString());
  return QString::fromStdString(value.ToDisplay());
}

std::vector<QString> ProductChanges(const std::string& from, const std::string& to) {
  ProductList before;
  ProductList after;
  try {
    before = ReadProductText(from);
    after = ReadProductText(to);
  } catch (const ProductTextError&) {
    return {QString::fromStdString(to)};
  }
  std::vector<QString> changes;
  const auto named = [](const ProductList& list, const std::string& product) -> const ProductLine* {
    for (const ProductLine& line : list.lines) {
      if (line.product == product) return &line;
    }
    return nullptr;
  };
  for (const ProductLine& line : before.lines) {
    const ProductLine* now = named(after, line.product);
    if (now == nullptr) {
      changes.push_back(QObject::tr("Removed: %1").arg(LineText(line)));
    } else if (!(*now == line)) {
      changes.push_back(QObject::tr("Changed: %1, was %2").arg(LineText(*now), LineText(line)));
    }
  }
  for (const ProductLine& line : after.lines) {
    if (named(before, line.product) == nullptr) {
      changes.push_back(QObject::tr("Added: %1").arg(LineText(line)));
    }
  }
  return changes;
}

}  // namespace pelkor::desktop
