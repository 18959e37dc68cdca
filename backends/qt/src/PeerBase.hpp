#pragma once
// TxalQt::PeerBase: what every peer widget shares. It is the item's Wg::ItemPeer: it mirrors
// the rectangle, visibility, enabled state and focus itself and hands the other aspects to the
// kind (Mirror). For Qt's side it offers the common event handling: every key press goes to
// Panel::KeyPress first (a modifier alone to Panel::ModifierPress), Qt focus moves the model's
// focus, and tool tips ask the item's observers.

#include <QEvent>
#include <QKeyEvent>
#include <QWidget>

#include "Wg/Item.hpp"

namespace TxalQt {

class PanelView;

class PeerBase : public Wg::ItemPeer {
public:
    PeerBase (PanelView& view, Wg::Item& item, QWidget& widget);
    PeerBase (const PeerBase&) = delete;
    PeerBase& operator= (const PeerBase&) = delete;
    // Detaches from an item that is still alive.
    ~PeerBase () override;

    // Null once the item is gone.
    Wg::Item*  GetItem () const { return item; }
    QWidget&   GetWidget () const { return widget; }
    PanelView& GetView () const { return view; }
    // Whether the item stands over a list box row (drawn flat, as part of the row).
    bool       IsOnTab () const { return onTab; }

    // Mirrors the item's whole state (when the peer is made).
    void SyncAll ();

    // --- Wg::ItemPeer ---
    void Changed (Wg::Item& changed, Wg::Aspect aspect, int detail) override;
    void ItemDestroyed (Wg::Item& gone) override;

    // Tab or Shift+Tab without the command modifier: the panel's traversal key.
    static bool IsTraversalKey (const QKeyEvent& event);

protected:
    // The kind's aspects: everything but rect, visibility, enabled state and focus (which the
    // base mirrors before it calls this for them too).
    virtual void Mirror (Wg::Aspect aspect, int detail) = 0;
    // The kind's whole state.
    virtual void MirrorAll () = 0;
    // A key that nobody in the model used: true when the peer consumed it, false to let the
    // widget's own handling have it. Never asked for Tab or Shift+Tab, which move the focus
    // only through the panel's traversal.
    virtual bool KeyNotUsed (QKeyEvent& event);
    // The tool tip's sub-item at a position (the row for a list box).
    virtual short GetToolTipSubItem (const QPoint&) const { return 0; }

    // The common event handling; true when the event was consumed. Widgets call it first from
    // their event ().
    bool HandleEvent (QEvent& event);
    // Sends a key to the panel; returns whether the model used it.
    bool ForwardKey (QKeyEvent& event);

private:
    void QtFocusIn (Qt::FocusReason reason);
    void QtFocusOut (Qt::FocusReason reason);
    bool ShowToolTip (QEvent& event);
    void UpdateOnTab ();

    PanelView& view;
    Wg::Item*  item;
    QWidget&   widget;
    bool       onTab = false;
};

}   // namespace TxalQt
