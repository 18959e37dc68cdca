#pragma once
// What the classifications and properties page exchanges with its host: the options that the
// host answers, the information strip that the host asks for, and the state the page stores and
// restores (folded property groups, splitter position).

#include "Kor/Guid.hpp"
#include "Kor/HashSet.hpp"
#include "Kor/UniString.hpp"

namespace TxAL {

// The host's answers that shape the page. Asked whenever the page needs them, never cached.
class IClassificationsAndPropertiesPageOptions {
public:
    virtual ~IClassificationsAndPropertiesPageOptions ();

    // The page follows its panel's resizes only when true.
    virtual bool PageIsResizable () const = 0;
    // Given to the property list: edits report every keystroke when true.
    virtual bool EditControlAutoUpdate () const = 0;
    // Without classifications there is no classification list and no splitter: the property
    // list takes their place.
    virtual bool ShowClassifications () const = 0;
    virtual bool ShowProperties () const = 0;
};

// A message shown at the bottom of the page, as information or as a warning. Made only by its
// two factories.
class ClassificationsAndPropertiesPageInfoStrip {
public:
    static ClassificationsAndPropertiesPageInfoStrip CreateInfo (const Kor::UniString& message) { return {message, false}; }
    static ClassificationsAndPropertiesPageInfoStrip CreateWarning (const Kor::UniString& message) { return {message, true}; }

    const Kor::UniString& GetMessage () const { return message; }
    bool                  IsWarning () const { return isWarning; }

private:
    ClassificationsAndPropertiesPageInfoStrip (const Kor::UniString& message, bool isWarning) : message (message), isWarning (isWarning) {}

    Kor::UniString message;
    bool           isWarning;
};

// What a page keeps across closing and reopening: the folded property groups, by the groups'
// guids, and the splitter's centre line measured from the page's top (0: none yet).
class ClassificationsAndPropertiesPageState {
public:
    const Kor::HashSet<Kor::Guid>& GetCollapsedPropertyGroupGuids () const { return collapsedPropertyGroupGuids; }
    void SetCollapsedPropertyGroupGuids (const Kor::HashSet<Kor::Guid>& guids) { collapsedPropertyGroupGuids = guids; }
    short GetSplitterPosition () const { return splitterPosition; }
    void  SetSplitterPosition (short position) { splitterPosition = position; }

private:
    Kor::HashSet<Kor::Guid> collapsedPropertyGroupGuids;
    short                   splitterPosition = 0;
};

}   // namespace TxAL
