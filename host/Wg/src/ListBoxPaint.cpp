// Wg::ListBox: painting rows and cells into a recording drawing context (list-box pixels).

#include "ListBoxImpl.hpp"

#include <algorithm>

namespace Wg {

namespace {

// A calm blue-grey that keeps black text readable; the CAD palette's selection tone.
constexpr Gfx::Color SelectionColor {197, 213, 228};
constexpr Gfx::Color DefaultRowColor = Gfx::Color::White;
constexpr Gfx::Color TextColor = Gfx::Color::Black;
constexpr Gfx::Color GreyedTextColor {142, 147, 154};
constexpr Gfx::Color SeparatorColor {217, 220, 225};

constexpr int CellPadding = 2;     // between the cell's edges and its content
constexpr int IconSize = 16;
constexpr int IconTextGap = 2;

}   // namespace

void ListBox::Impl::DrawCellContent (const Row& row, short column, const Rect& cell, Gfx::DrawingContext& context) const
{
    const TabField& field = *FindField (column);
    const Cell* content = row.FindCell (column);
    if (content == nullptr) return;
    const bool greyed = row.status == Grayed;
    const Icon icon = content->GetIcon ();
    const bool hasIcon = !icon.IsEmpty ();
    const bool hasText = !content->text.IsEmpty ();
    const int textWidth = hasText ? Gfx::MeasureText (content->text, row.GetPaintedFontStyle ()).width : 0;
    const int blockWidth = (hasIcon ? IconSize : 0) + (hasIcon && hasText ? IconTextGap : 0) + textWidth;

    // The icon and the text form one block, placed by the field's justification; a block that
    // does not fit starts at the left padding and the text is cut at the right one.
    int blockLeft = cell.left + CellPadding;
    Gfx::TextAlign align = Gfx::TextAlign::Left;
    if (field.justification == Center) {
        blockLeft = cell.left + (cell.GetWidth () - blockWidth) / 2;
        align = Gfx::TextAlign::Center;
    } else if (field.justification == Right) {
        blockLeft = cell.right - CellPadding - blockWidth;
        align = Gfx::TextAlign::Right;
    }
    blockLeft = std::max (blockLeft, cell.left + CellPadding);

    int x = blockLeft;
    if (hasIcon) {
        const int iconTop = cell.top + (cell.GetHeight () - IconSize) / 2;
        DrawIcon (context, icon, Rect::FromSize (x, iconTop, IconSize, IconSize), greyed);
        x += IconSize + IconTextGap;
    }
    if (hasText) {
        const int available = cell.right - CellPadding - x;
        if (available <= 0) return;
        Gfx::TextStyle style;
        style.color = greyed ? GreyedTextColor : TextColor;
        style.greyed = greyed;
        style.fontStyle = row.GetPaintedFontStyle ();
        style.align = align;
        style.truncateEnd = (field.truncation & (EndTruncation | MiddleTruncation)) != 0;
        context.DrawText (content->text, Rect (x, cell.top, x + std::min (textWidth, available), cell.bottom), style);
    }
}

void ListBox::PaintRow (short row, Gfx::DrawingContext& context)
{
    const Impl::Row* r = impl->FindRow (row);
    if (r == nullptr) return;
    const Rect rowRect = impl->GetRowRect (row);
    const Gfx::Color background = row == impl->selected ? SelectionColor : (r->hasBackground ? r->background : DefaultRowColor);
    context.FillRect (rowRect, background);

    for (short column = 1; impl->IsColumn (column); ++column) {
        const Rect cell = impl->GetCellRect (row, column);
        if (impl->FindField (column)->ownerDrawn || cell.IsEmpty () || !r->HasContent (column)) continue;
        context.PushClip (cell);
        impl->DrawCellContent (*r, column, cell, context);
        context.PopClip ();
    }

    // Owner drawing may change the list box (even destroy it): look everything up again after
    // each event.
    Kor::LifeWatch alive (*this);
    for (short column = 1; impl->IsColumn (column); ++column) {
        if (!impl->FindField (column)->ownerDrawn) continue;
        const Rect cell = impl->GetCellRect (row, column);
        if (cell.IsEmpty ()) continue;
        context.PushClip (cell);
        const ListBoxTabItemUpdateEvent event (this, row, column, &context, cell);
        impl->NotifyListBoxObservers ([&] (ListBoxObserver& observer) { observer.ListBoxTabFieldUpdate (event); });
        context.PopClip ();
        if (alive.IsGone () || !impl->IsRow (row)) return;
    }

    if (impl->FindRow (row)->ownerDrawn) {
        context.PushClip (rowRect);
        const ListBoxItemUpdateEvent event (this, row, &context, rowRect);
        impl->NotifyListBoxObservers ([&] (ListBoxObserver& observer) { observer.ListBoxItemUpdate (event); });
        context.PopClip ();
        if (alive.IsGone ()) return;
    }

    if (impl->separatorLines) {
        const int y = rowRect.bottom - 1;
        context.DrawLine (Point (rowRect.left, y), Point (rowRect.right, y), SeparatorColor);
    }
}

Gfx::DrawingContext ListBox::PaintCell (short row, short column)
{
    Gfx::DrawingContext context;
    const Impl::Row* r = impl->FindRow (row);
    const Impl::TabField* field = impl->FindField (column);
    if (r == nullptr || field == nullptr) return context;
    const Rect cell = impl->GetCellRect (row, column);
    if (cell.IsEmpty ()) return context;
    if (field->ownerDrawn) {
        const ListBoxTabItemUpdateEvent event (this, row, column, &context, cell);
        impl->NotifyListBoxObservers ([&] (ListBoxObserver& observer) { observer.ListBoxTabFieldUpdate (event); });
    } else {
        impl->DrawCellContent (*r, column, cell, context);
    }
    return context;
}

void ListBox::PaintOverlay (Gfx::DrawingContext& context)
{
    const Rect client = impl->GetClientRect ();
    const ListBoxOverlayUpdateEvent event (this, &context, Rect (0, 0, client.GetWidth (), client.GetHeight ()));
    impl->NotifyListBoxObservers ([&] (ListBoxObserver& observer) { observer.ListBoxOverlayUpdate (event); });
}

}   // namespace Wg
