#pragma once
// Pk::Pk257: the pen and fill-pattern picker. Besides the picker's entries and value it holds the
// colours that its swatch is drawn with: each of the fore, back, frame and separator colours is
// either the control's own (Set…Color) or the cell's that the control stands on (UseCell…Color,
// the initial state). A getter answers the control's own colour, or nothing when the cell's is in
// force.

#include <optional>

#include "Gfx/Color.hpp"
#include "Pk/PickerControl.hpp"

namespace Pk {

class Pk257 : public PickerControl {
public:
    Pk257 (const Wg::Panel& panel, const Wg::Rect& rect, short id = 0);

    void                      SetForeColor (const Gfx::Color& color) { SetColor (foreColor, color); }
    void                      UseCellForeColor () { SetColor (foreColor, std::nullopt); }
    std::optional<Gfx::Color> GetForeColor () const { return foreColor; }

    void                      SetBackColor (const Gfx::Color& color) { SetColor (backColor, color); }
    void                      UseCellBackColor () { SetColor (backColor, std::nullopt); }
    std::optional<Gfx::Color> GetBackColor () const { return backColor; }

    void                      SetFrameColor (const Gfx::Color& color) { SetColor (frameColor, color); }
    void                      UseCellFrameColor () { SetColor (frameColor, std::nullopt); }
    std::optional<Gfx::Color> GetFrameColor () const { return frameColor; }

    void                      SetSeparatorColor (const Gfx::Color& color) { SetColor (separatorColor, color); }
    void                      UseCellSeparatorColor () { SetColor (separatorColor, std::nullopt); }
    std::optional<Gfx::Color> GetSeparatorColor () const { return separatorColor; }

private:
    void SetColor (std::optional<Gfx::Color>& slot, const std::optional<Gfx::Color>& newColor);

    std::optional<Gfx::Color> foreColor;
    std::optional<Gfx::Color> backColor;
    std::optional<Gfx::Color> frameColor;
    std::optional<Gfx::Color> separatorColor;
};

}   // namespace Pk
