#pragma once

#include <QColor>
#include <QFont>

QT_BEGIN_NAMESPACE
class QApplication;
QT_END_NAMESPACE

/// The colours, sizes and fonts of the window. Nothing else names one.
namespace StandIn::Theme {

inline constexpr QRgb window = 0xff1c1c1e;
inline constexpr QRgb surround = 0xff161618; ///< behind the photo
inline constexpr QRgb panel = 0xff232326;
inline constexpr QRgb control = 0xff2e2e32;
inline constexpr QRgb hairline = 0xff3a3a3e;
inline constexpr QRgb groove = 0xff48484d;
inline constexpr QRgb text = 0xfff5f5f7;
inline constexpr QRgb secondaryText = 0xffa1a1a6;
inline constexpr QRgb accent = 0xff3b8cff;
inline constexpr QRgb failed = 0xffff6159;

inline constexpr int unit = 4; ///< all distances are multiples of it
inline constexpr int small = 2 * unit;
inline constexpr int medium = 4 * unit;
inline constexpr int large = 6 * unit;
inline constexpr int radius = 2 * unit;

inline constexpr int panelWidth = 88 * unit;
inline constexpr int headerHeight = 12 * unit;
inline constexpr int barHeight = 12 * unit;
inline constexpr int cellWidth = 36 * unit;
inline constexpr int cellHeight = 30 * unit;

[[nodiscard]] QFont font();
[[nodiscard]] QFont smallFont();
[[nodiscard]] QFont headingFont();

/// Gives the program's widgets these looks.
void apply(QApplication &application);

} // namespace StandIn::Theme
