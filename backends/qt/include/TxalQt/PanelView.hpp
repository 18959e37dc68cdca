#pragma once
// TxalQt::PanelView: the QWidget that shows a Wg::Panel (made by Backend::AttachPanel). It is
// the panel's peer: for every item it makes a peer widget by the item's kind and keeps it in
// step; item rectangles are its coordinates, in logical pixels. User input reaches the model
// only through the model's entry points.
//
// Life: the view and the panel may go in either order. A view that goes first detaches the
// panel and every item (SetPeer (nullptr)); an item that goes first has its widget released
// later; a panel that goes first leaves an inert view. Items that already have a peer of
// another kind are left alone.
//
// While the view is shown the panel hears an idle event every IdleIntervalMs when no input or
// modal session is under way. A view that is a window of its own closes only when one of the
// panel's observers accepts the close request; an embedded view leaves closing to its window.

#include <QTimer>
#include <QWidget>
#include <vector>

#include "Wg/Panel.hpp"

namespace TxalQt {

class PeerBase;

// The QWidget that shows a Wg::Panel and reports the user's input to it.
class PanelView : public QWidget, public Wg::PanelPeer {
    Q_OBJECT

public:
    static constexpr int IdleIntervalMs = 200;

    PanelView (Wg::Panel& shown, QWidget* parent);
    PanelView (const PanelView&) = delete;
    PanelView& operator= (const PanelView&) = delete;
    ~PanelView () override;

    // Null once the panel is gone.
    Wg::Panel* GetPanel () const { return panel; }

    // Items announce themselves from their constructor, before their kind is known, so their
    // peers are made from the event loop; this makes them now (before a screenshot, say).
    void SyncPeers ();

    // The widget that mirrors item; null for kinds without a peer and items not mirrored yet.
    QWidget* FindPeerWidget (const Wg::Item& item) const;
    PeerBase* FindPeer (const Wg::Item& item) const;
    int GetPeerCount () const { return static_cast<int> (peers.size ()); }

    // --- Wg::PanelPeer ---
    void PanelChanged (Wg::Panel& changed) override;
    void ItemAdded (Wg::Panel& owner, Wg::Item& item) override;
    void PanelDestroyed (Wg::Panel& destroyed) override;

    // --- For the peers ---
    // Whether Qt's input may reach the model now: not while a model change is being mirrored
    // (Qt's reactions to it are echoes), nor while the view or the panel goes.
    bool AcceptsInput () const { return panel != nullptr && !closing && mirroring == 0; }
    void BeginMirroring () { ++mirroring; }
    void EndMirroring () { --mirroring; }
    void PeerItemGone (PeerBase& peer);
    // Whether the item stands over a row of one of the panel's list boxes.
    bool IsOverListRow (const Wg::Item& item) const;
    // Moves the Qt focus to the widget of the item that has the model's focus (or to the view).
    // Does nothing while the keyboard leaves the panel (LeavePanel).
    void FollowModelFocus ();
    // The Qt focus went to a widget outside the view: the model's focus leaves the panel, so
    // that what was typed is committed. Whatever gives an item the focus again meanwhile (a
    // refreshed row puts it back into its edit) is an echo and is undone; the keyboard stays
    // where the user put it.
    void LeavePanel ();

protected:
    bool event (QEvent* event) override;
    void keyPressEvent (QKeyEvent* event) override;
    void resizeEvent (QResizeEvent* event) override;
    void closeEvent (QCloseEvent* event) override;
    void wheelEvent (QWheelEvent* event) override;

private:
    // Stands in for the peer of an item whose peer is not made yet: only its end matters.
    class PendingPeer : public Wg::ItemPeer {
    public:
        explicit PendingPeer (PanelView& view) : view (view) {}
        void Changed (Wg::Item&, Wg::Aspect, int) override {}
        void ItemDestroyed (Wg::Item& item) override;

    private:
        PanelView& view;
    };

    void CreatePeer (Wg::Item& item);
    void ScheduleSync ();
    void UpdateScale ();
    void ApplyPanelState ();

    Wg::Panel*              panel;
    std::vector<PeerBase*>  peers;
    std::vector<Wg::Item*>  pending;
    PendingPeer             pendingPeer {*this};
    QTimer                  resizeExitTimer;
    QTimer                  idleTimer;
    int                     mirroring = 0;
    bool                    syncScheduled = false;
    bool                    applyingPanelSize = false;
    bool                    closing = false;
    bool                    leaving = false;
};

}   // namespace TxalQt
