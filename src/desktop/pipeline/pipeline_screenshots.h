#pragma once

#include <QString>
#include <QStringList>

namespace pelkor::desktop {

class PipelineWindow;

// Writes PNGs of the pipeline (main table and archive), its two pictures and the New IBO
// dialog into `folder`; returns the files written.
QStringList WritePipelineScreenshots(PipelineWindow& pipeline, const QString& folder);

}  // namespace pelkor::desktop
