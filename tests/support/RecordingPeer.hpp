#pragma once
// A peer that writes what it hears into a log: "Text Selection Value Row:3 Destroyed". Tests
// attach it to items (it detaches itself from those still alive when it dies) and compare the
// log, which TakeLog empties.

#include <algorithm>
#include <string>
#include <vector>

#include "Wg/Item.hpp"

namespace TestSupport {

inline const char* AspectName (Wg::Aspect aspect)
{
    switch (aspect) {
        case Wg::Aspect::Rect:       return "Rect";
        case Wg::Aspect::Visibility: return "Visibility";
        case Wg::Aspect::Enabled:    return "Enabled";
        case Wg::Aspect::Focus:      return "Focus";
        case Wg::Aspect::Text:       return "Text";
        case Wg::Aspect::Value:      return "Value";
        case Wg::Aspect::Bounds:     return "Bounds";
        case Wg::Aspect::Selection:  return "Selection";
        case Wg::Aspect::Content:    return "Content";
        case Wg::Aspect::Layout:     return "Layout";
        case Wg::Aspect::Rows:       return "Rows";
        case Wg::Aspect::Row:        return "Row";
        case Wg::Aspect::Scroll:     return "Scroll";
        case Wg::Aspect::Draw:       return "Draw";
    }
    return "?";
}

class RecordingPeer : public Wg::ItemPeer {
public:
    RecordingPeer () = default;
    RecordingPeer (const RecordingPeer&) = delete;
    RecordingPeer& operator= (const RecordingPeer&) = delete;
    ~RecordingPeer () override
    {
        for (Wg::Item* item : items) item->SetPeer (nullptr);
    }

    void AttachTo (Wg::Item& item)
    {
        item.SetPeer (this);
        if (std::find (items.begin (), items.end (), &item) == items.end ()) items.push_back (&item);
    }

    // With names on, each entry is prefixed with the item's id: "2:Text".
    void SetNameItems (bool on) { nameItems = on; }

    void Changed (Wg::Item& item, Wg::Aspect aspect, int detail) override
    {
        std::string entry = AspectName (aspect);
        if (detail != 0) entry += ":" + std::to_string (detail);
        Append (item, entry);
    }

    void ItemDestroyed (Wg::Item& item) override
    {
        Append (item, "Destroyed");
        items.erase (std::remove (items.begin (), items.end (), &item), items.end ());
    }

    const std::string& GetLog () const { return log; }
    std::string TakeLog ()
    {
        std::string taken;
        taken.swap (log);
        return taken;
    }

private:
    void Append (Wg::Item& item, const std::string& entry)
    {
        if (!log.empty ()) log += ' ';
        if (nameItems) log += std::to_string (item.GetId ()) + ":";
        log += entry;
    }

    std::vector<Wg::Item*> items;
    std::string            log;
    bool                   nameItems = false;
};

}   // namespace TestSupport
