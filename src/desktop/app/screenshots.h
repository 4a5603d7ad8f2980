#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>

namespace pelkor::desktop {

class HostWindow;
class EditorEnvironment;

// Writes a PNG of the form for every main tab and every Sales Environment sub-tab of the IBO
// (by default the first expert and the first basic IBO of the main table) into `folder`.
// Returns the files written; a failure is a PelkError or std::runtime_error.
QStringList WriteScreenshots(HostWindow& window, EditorEnvironment& environment,
                             const QString& folder, std::optional<std::int32_t> iboId,
                             std::int32_t view);

}  // namespace pelkor::desktop
