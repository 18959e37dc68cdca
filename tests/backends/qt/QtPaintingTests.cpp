// The backend's drawing pieces on their own: the replay of recordings, the icon cache and the
// key mapping. Pixels are sampled from images painted at a ratio of 1.

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <string>

#include "IconCache.hpp"
#include "KeyMapping.hpp"
#include "Named.hpp"
#include "Replay.hpp"
#include "TxAttributeList/ResourceHelpers.hpp"

namespace {

constexpr Gfx::Color Red {255, 0, 0};
constexpr Gfx::Color Green {0, 255, 0};
constexpr Gfx::Color Blue {0, 0, 255};

// One letter per pixel: r, g, b, w(hite), k (black) or ? for anything else.
char Sample (const QImage& image, int x, int y)
{
    const QColor colour = image.pixelColor (x, y);
    if (colour == QColor (Qt::red)) return 'r';
    if (colour == QColor (Qt::green)) return 'g';
    if (colour == QColor (Qt::blue)) return 'b';
    if (colour == QColor (Qt::white)) return 'w';
    if (colour == QColor (Qt::black)) return 'k';
    return '?';
}

QImage Paint (const Gfx::DrawingContext& recording, const QRect& clip = QRect (0, 0, 40, 24))
{
    QImage image (40, 24, QImage::Format_ARGB32_Premultiplied);
    image.fill (Qt::white);
    QPainter painter (&image);
    TxalQt::Replay replay (painter, clip);
    replay.Play (recording);
    return image;
}

TEST (ReplayTest, RectanglesExcludeTheirRightAndBottomEdges)
{
    Gfx::DrawingContext recording;
    recording.FillRect (Gfx::Rect (2, 2, 6, 6), Red);
    recording.FrameRect (Gfx::Rect (10, 2, 20, 12), Blue, 2);
    const QImage image = Paint (recording);
    const std::string fill {Sample (image, 2, 2), Sample (image, 5, 5), Sample (image, 6, 5), Sample (image, 5, 6)};
    const std::string frame {Sample (image, 10, 2), Sample (image, 11, 3), Sample (image, 12, 4), Sample (image, 19, 11), Sample (image, 20, 11),
                             Sample (image, 18, 10), Sample (image, 17, 9)};
    EXPECT_EQ (fill + " " + frame, "rrww bbwbwbw");
}

TEST (ReplayTest, ClipsNestAndEndWithTheirPop)
{
    Gfx::DrawingContext recording;
    recording.PushClip (Gfx::Rect (0, 0, 20, 24));
    recording.PushClip (Gfx::Rect (5, 0, 40, 24));
    recording.FillRect (Gfx::Rect (0, 0, 40, 4), Red);      // inside both: x 5..19
    recording.PopClip ();
    recording.FillRect (Gfx::Rect (0, 5, 40, 9), Green);    // inside the first: x 0..19
    recording.PopClip ();
    recording.PopClip ();                                    // one too many: ignored
    recording.FillRect (Gfx::Rect (0, 10, 40, 14), Blue);
    recording.PushClip (Gfx::Rect (0, 0, 1, 1));             // left pushed: the next play is not clipped by it
    const QImage image = Paint (recording, QRect (0, 0, 30, 24));
    const std::string seen {Sample (image, 4, 1), Sample (image, 5, 1), Sample (image, 19, 1), Sample (image, 20, 1), ' ',
                            Sample (image, 0, 6), Sample (image, 20, 6), ' ', Sample (image, 29, 11), Sample (image, 30, 11)};
    EXPECT_EQ (seen, "wrrw gw bw");
}

TEST (ReplayTest, LinesAndHatchesLandOnWholePixels)
{
    Gfx::DrawingContext recording;
    recording.DrawLine (Gfx::Point (0, 20), Gfx::Point (40, 20), Gfx::Color::Black);
    recording.DrawLine (Gfx::Point (30, 0), Gfx::Point (30, 10), Blue, 2);
    Gfx::HatchPattern bitmap;
    bitmap.isBitmap = true;
    bitmap.bits = {0x80, 0, 0, 0, 0, 0, 0, 0};            // the top-left pixel of every 8 x 8 tile
    recording.DrawHatch (Gfx::Rect (2, 2, 20, 12), bitmap, Red, Gfx::Color::White);
    Gfx::HatchPattern lines;
    lines.lines.push_back (Gfx::HatchLine {0.0, 0.0, 0.0});   // no spacing: draws nothing
    recording.DrawHatch (Gfx::Rect (0, 14, 10, 18), lines, Red, Green);
    const QImage image = Paint (recording);
    const std::string seen {Sample (image, 5, 19), Sample (image, 5, 20), Sample (image, 5, 21), ' ', Sample (image, 29, 5),
                            Sample (image, 30, 5), Sample (image, 31, 5), Sample (image, 32, 5), ' ', Sample (image, 2, 2),
                            Sample (image, 3, 2), Sample (image, 10, 10), Sample (image, 10, 2), ' ', Sample (image, 5, 15)};
    EXPECT_EQ (seen, "wkw wbbw rwrr g");
}

TEST (IconCacheTest, IconsRenderAtTheRatioAndGreyedOnesAreGrey)
{
    TxalQt::IconCache& cache = TxalQt::IconCache::Get ();
    const Wg::Icon icon = TxAL::GetResourceIcon (2003);
    const QPixmap sharp = cache.GetPixmap (icon, QSize (16, 16), 2.0);
    const QImage greyed = cache.GetPixmap (icon, QSize (16, 16), 2.0, true).toImage ();
    // The icon's accent fill at its centre: blue-ish, and grey once greyed.
    const QColor centre = sharp.toImage ().pixelColor (16, 16);
    const QColor greyCentre = greyed.pixelColor (16, 16);
    const QPixmap unknown = cache.GetPixmap (Wg::Icon (TxAL::GetLibResModule (), 999999), QSize (16, 16), 1.0);
    const QImage arrow = cache.GetPixmap (Wg::GetArrowImage (Wg::TriangleArrow, Wg::ArrowDown), QSize (16, 16), 1.0).toImage ();
    const QImage checkOn = cache.GetPixmap (Wg::Icon (Wg::Icon::StockModule, Wg::Icon::StockCheckOn), QSize (16, 16), 1.0).toImage ();
    const QImage checkOff = cache.GetPixmap (Wg::Icon (Wg::Icon::StockModule, Wg::Icon::StockCheckOff), QSize (16, 16), 1.0).toImage ();
    QtTest::Facts facts;
    facts ("pixels", sharp.width ()) ("ratio", sharp.devicePixelRatio ()) ("accentBlue", centre.blue () > centre.red ())
          ("greyedGrey", greyCentre.red () == greyCentre.blue ()) ("unknownNull", unknown.isNull ())
          ("arrowOpaqueInside", arrow.pixelColor (8, 7).alpha () == 255) ("arrowClearBelow", arrow.pixelColor (8, 12).alpha () == 0)
          ("checkStatesDiffer", checkOn != checkOff);
    EXPECT_EQ (facts.Text (), "pixels=32 ratio=2 accentBlue=true greyedGrey=true unknownNull=true arrowOpaqueInside=true "
                              "arrowClearBelow=true checkStatesDiffer=true");
}

std::string Map (int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    const QKeyEvent event (QEvent::KeyPress, key, modifiers, text);
    if (const auto modifier = TxalQt::KeyMapping::ToModifier (event)) return "modifier:" + QtTest::ModifierKeyName (modifier->GetKey ());
    const auto code = TxalQt::KeyMapping::ToKeyCode (event);
    return code.has_value () ? QtTest::KeyName (*code) : "-";
}

TEST (KeyMappingTest, QtKeysBecomeModelCodes)
{
    const std::string seen = Map (Qt::Key_Return) + " " + Map (Qt::Key_Enter, {}, Qt::KeypadModifier) + " " + Map (Qt::Key_Escape) + " " +
                             Map (Qt::Key_Backtab, {}, Qt::ShiftModifier) + " " + Map (Qt::Key_PageDown) + " " +
                             Map (Qt::Key_Down, {}, Qt::AltModifier) + " " + Map (Qt::Key_A, "A", Qt::ShiftModifier) + " " +
                             Map (Qt::Key_C, QString (QChar (3)), Qt::ControlModifier) + " " + Map (Qt::Key_Space, " ") + " " +
                             Map (Qt::Key_Alt, {}, Qt::AltModifier) + " " + Map (Qt::Key_Control, {}, Qt::ControlModifier) + " " +
                             Map (Qt::Key_F5) + " " + Map (Qt::Key_unknown, QStringLiteral ("\U0001F600"));
    EXPECT_EQ (seen, "Return Enter Escape Shift+Tab PageDown Alt+Down Shift+A Ctrl+c Space modifier:Alt modifier:Ctrl - -");
}

}   // namespace
