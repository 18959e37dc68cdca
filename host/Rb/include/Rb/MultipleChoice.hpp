#pragma once
// The multiple-choice popup: a checklist of texts under the control that opened it. The model
// (MultipleChoiceData) holds the entries and their ticks and tells its observers of every
// change, so that a caller can follow the ticks while the popup is open; MultipleChoiceDataChanges
// says afterwards whether the ticks differ from when it was made.
//
// Headless, the popup plays the modal runner's script: Tick(i, on) sets the mark of entry i
// (1-based), Accept closes keeping the ticks, Cancel closes and restores the ticks it found.

#include <cstddef>
#include <vector>

#include "Kor/Event.hpp"
#include "Kor/LifeWatch.hpp"
#include "Rb/DialogSession.hpp"
#include "Kor/UniString.hpp"
#include "Wg/Item.hpp"
#include "Wg/ModalRunner.hpp"

namespace Rb {

class MultipleChoiceData;

// Hears every change of the ticks of a MultipleChoiceData.
class MultipleChoiceDataObserver : public virtual Kor::EventObserver {
public:
    virtual void SelectionChanged (const MultipleChoiceData& data);
};

// The entries of a checklist (0-based here) and which of them are ticked.
class MultipleChoiceData : public Kor::EventSource {
public:
    void Attach (MultipleChoiceDataObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (MultipleChoiceDataObserver& observer) { Kor::EventSource::Detach (observer); }

    // Removes every entry without notifying.
    void        Clear () { items.clear (); }
    // Appends an entry without notifying; returns its index.
    std::size_t AddItem (const Kor::UniString& text, bool selected);

    std::size_t           GetItemCount () const { return items.size (); }
    const Kor::UniString& GetItemText (std::size_t index) const;
    bool                  IsItemSelected (std::size_t index) const;
    // Ticks or unticks an entry; a change notifies the observers. Indices out of range are ignored.
    void                  SetItemSelected (std::size_t index, bool selected);
    // The ticks of all entries in order.
    std::vector<bool>     GetSelection () const;
    // Sets all ticks at once (extra values are ignored); one notification when something changed.
    void                  SetSelection (const std::vector<bool>& selection);

private:
    struct Item {
        Kor::UniString text;
        bool           selected = false;
    };

    void NotifySelectionChanged ();

    std::vector<Item> items;
};

// Whether the ticks of a MultipleChoiceData differ from those it had when the tracker was made.
class MultipleChoiceDataChanges {
public:
    explicit MultipleChoiceDataChanges (const MultipleChoiceData& data) : data (data), initial (data.GetSelection ()) {}

    bool HasSelectionChanged () const { return data.GetSelection () != initial; }

private:
    const MultipleChoiceData& data;
    std::vector<bool>         initial;
};

// The checklist popup over a MultipleChoiceData, anchored at a control. Does not own the data
// or the anchor.
class MultipleChoicePopUpDialog : public DialogSession {
public:
    MultipleChoicePopUpDialog (MultipleChoiceData& data, Wg::Item* anchor);

    MultipleChoiceData& GetData () const { return data; }

    // --- Wg::ModalSession ---
    std::vector<Wg::ModalEntry> GetEntries () const override;
    void                        Begin () override;
    bool                        Perform (const Wg::ModalStep& step) override;

protected:
    void RevertOnCancel () override;

private:
    MultipleChoiceData& data;
    std::vector<bool>   selectionAtBegin;
};

}   // namespace Rb
