#pragma once
// A classification item: one class of a classification system (code, name, description), with
// its parent and children. Items are made and owned by their ClassificationSystem; a reference
// to an item keeps the item (not its system) alive.

#include <memory>
#include <vector>

#include "Kor/Array.hpp"
#include "Kor/UniString.hpp"
#include "ODB/Ref.hpp"

namespace CLS {

class ClassificationSystem;

// What every classification item answers.
class IClassificationItem {
public:
    virtual ~IClassificationItem ();

    // The class's code within its system, for example "EF_25_10".
    virtual const Kor::UniString& GetCode () const = 0;
    virtual const Kor::UniString& GetName () const = 0;
    // The descriptive text (a row's tooltip shows it).
    virtual const Kor::UniString& GetDescription () const = 0;
    // The short text that names the item: its name, or its code when it has no name.
    virtual Kor::UniString GetDisplayName () const = 0;
    // Empty for a top-level item.
    virtual ODB::ConstRef<IClassificationItem>              GetParent () const = 0;
    virtual Kor::Array<ODB::ConstRef<IClassificationItem>> GetChildren () const = 0;
    virtual bool                                            HasChildren () const = 0;
};

// The classification library's item, made by ClassificationSystem::AddItem.
class ClassificationItem final : public IClassificationItem {
public:
    // Only the system makes items; the key keeps the constructor usable by make_shared.
    class Key {
        friend class ClassificationSystem;
        Key () = default;
    };

    ClassificationItem (Key, const ClassificationSystem& system, const Kor::UniString& code, const Kor::UniString& name,
                        const Kor::UniString& description);
    ClassificationItem (const ClassificationItem&) = delete;
    ClassificationItem& operator= (const ClassificationItem&) = delete;

    // --- IClassificationItem ---
    const Kor::UniString&                           GetCode () const override { return code; }
    const Kor::UniString&                           GetName () const override { return name; }
    const Kor::UniString&                           GetDescription () const override { return description; }
    Kor::UniString                                  GetDisplayName () const override;
    ODB::ConstRef<IClassificationItem>              GetParent () const override;
    Kor::Array<ODB::ConstRef<IClassificationItem>> GetChildren () const override;
    bool                                            HasChildren () const override { return !children.empty (); }

    ODB::ConstRef<ClassificationItem>              GetParentTyped () const;
    Kor::Array<ODB::ConstRef<ClassificationItem>> GetChildrenTyped () const;
    std::size_t                                     GetChildCount () const { return children.size (); }
    // 0 for a top-level item.
    int                                             GetDepth () const;
    // Whether the item was made by that system (the system is compared, never used).
    bool IsOf (const ClassificationSystem& other) const { return system == &other; }

private:
    friend class ClassificationSystem;

    const ClassificationSystem*                       system;
    Kor::UniString                                    code;
    Kor::UniString                                    name;
    Kor::UniString                                    description;
    std::weak_ptr<const ClassificationItem>           parent;
    std::vector<std::shared_ptr<ClassificationItem>>  children;
};

}   // namespace CLS
