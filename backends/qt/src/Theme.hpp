#pragma once
// TxalQt::Theme: the backend's look (a calm, flat CAD palette), its fonts, and the text measurer
// that makes the model's centring and elision match what the screen shows.

#include <QColor>
#include <QFont>
#include <QString>

#include "Gfx/TextMetrics.hpp"

namespace TxalQt::Theme {

// Fonts are sized in logical pixels, like every position of the model.
constexpr int FontPixelSize = 12;
constexpr int HeaderFontPixelSize = 11;

// The palette.
inline const QColor WindowColor {0xF4, 0xF5, 0xF7};
inline const QColor BaseColor {0xFF, 0xFF, 0xFF};
inline const QColor InkColor {0x1F, 0x29, 0x33};
inline const QColor SecondaryInkColor {0x4A, 0x56, 0x63};
inline const QColor GreyedInkColor {0x9A, 0xA4, 0xAF};
inline const QColor FrameColor {0xC3, 0xCA, 0xD2};
inline const QColor DividerColor {0xD6, 0xDB, 0xE1};
inline const QColor HeaderColor {0xEE, 0xF0, 0xF3};
inline const QColor AccentColor {0x2B, 0x78, 0xC5};
inline const QColor AccentLightColor {0xCF, 0xE2, 0xF5};
inline const QColor HoverColor {0xE3, 0xE8, 0xEE};
inline const QColor PressedColor {0xD3, 0xDA, 0xE2};

// The font of a model font style (Gfx::FontStyle bits: 16 bold, 32 italic).
const QFont& GetFont (int fontStyle);
const QFont& GetHeaderFont ();
// The width the text takes in the font of fontStyle, rounded up to whole pixels (cached).
int MeasureWidth (const QString& text, int fontStyle);

// The style sheet of the peer widgets (edits, slider, check box, labels).
QString GetPeerStyleSheet ();

// Installs a Gfx text measurer backed by the fonts above; counted, so that the headless metric
// returns when the last user removes it.
void AcquireTextMeasurer ();
void ReleaseTextMeasurer ();
bool IsTextMeasurerInstalled ();

}   // namespace TxalQt::Theme
