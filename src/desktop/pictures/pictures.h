#pragma once

#include <QPixmap>
#include <QSize>

namespace pelkor::desktop {

// Picture resource numbers. The editor loads the strips and priorities by these numbers; the
// fixed pictures of the form (matrix, markers, sales-cycle graph) have numbers of their own so
// that every picture is drawn through one entry point.
namespace picture {
inline constexpr int kExpertStripFirst = 101;  // Essentials .. IBO Note, one per selected tab
inline constexpr int kExpertStripLast = 105;
inline constexpr int kNormalStripFirst = 106;  // Essentials, Sales Advisor, IBO Info, IBO Note
inline constexpr int kNormalStripLast = 109;
inline constexpr int kSubStripFirst = 110;  // Probe, Prove, Close
inline constexpr int kSubStripLast = 112;
inline constexpr int kUserPriorityFirst = 113;  // priorities 1..5 on a light panel
inline constexpr int kUserPriorityLast = 117;
inline constexpr int kAdvisorPriorityFirst = 118;  // the same on a dark panel
inline constexpr int kAdvisorPriorityLast = 122;

inline constexpr int kMatrix = 201;
inline constexpr int kUserSquare = 202;
inline constexpr int kAdvisorSquare = 203;
inline constexpr int kCommonSquare = 204;
inline constexpr int kSalesCycle = 205;
inline constexpr int kCycleMarker = 206;
}  // namespace picture

// Whether DrawPicture knows the number.
bool IsKnownPicture(int resourceId);
// Draws the picture of a resource number; a null pixmap for 0 or an unknown number.
QPixmap DrawPicture(int resourceId);

}  // namespace pelkor::desktop
