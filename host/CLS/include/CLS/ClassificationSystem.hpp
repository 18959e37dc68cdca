#pragma once
// A classification system: a named, versioned tree of classification items in the system's own
// order. Traversals visit parents before their children and stop when the callback returns
// false.

#include <cstddef>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "CLS/ClassificationItem.hpp"
#include "Kor/UniString.hpp"
#include "ODB/Ref.hpp"

namespace CLS {

// The orders of a traversal; both visit a parent before its children.
enum TraverseMode : int {
    DepthFirst = 0,   // the system's order: an item, then its whole subtree, then its next sibling
    LevelOrder = 1,   // every top-level item, then every item of depth 1, and so on
};

// What every classification system answers.
class IClassificationSystem {
public:
    using ItemCallback = std::function<bool (const ODB::ConstRef<IClassificationItem>&)>;

    virtual ~IClassificationSystem ();

    virtual const Kor::UniString& GetName () const = 0;
    virtual const Kor::UniString& GetEditionVersion () const = 0;
    virtual const Kor::UniString& GetDescription () const = 0;
    // The name, followed by the edition when there is one.
    virtual Kor::UniString GetDisplayName () const = 0;
    virtual std::size_t    GetItemCount () const = 0;
    // Visits the items in the mode's order until the callback returns false.
    virtual void TraverseClassificationsConst (int mode, const ItemCallback& callback) const = 0;
};

// The classification library's system. Items are added parents first.
class ClassificationSystem final : public IClassificationSystem {
public:
    using TypedItemCallback = std::function<bool (const ODB::ConstRef<ClassificationItem>&)>;

    ClassificationSystem (const Kor::UniString& name, const Kor::UniString& editionVersion, const Kor::UniString& description = {});
    ClassificationSystem (const ClassificationSystem&) = delete;
    ClassificationSystem& operator= (const ClassificationSystem&) = delete;
    ~ClassificationSystem () override;

    // A new system held by a reference, ready to be filled.
    static ODB::Ref<ClassificationSystem> Create (const Kor::UniString& name, const Kor::UniString& editionVersion,
                                                  const Kor::UniString& description = {});

    // --- IClassificationSystem ---
    const Kor::UniString& GetName () const override { return name; }
    const Kor::UniString& GetEditionVersion () const override { return editionVersion; }
    const Kor::UniString& GetDescription () const override { return description; }
    Kor::UniString        GetDisplayName () const override;
    std::size_t           GetItemCount () const override { return itemCount; }
    void TraverseClassificationsConst (int mode, const ItemCallback& callback) const override;

    // Adds an item as the last child of parent, or as the last top-level item when parent is
    // empty. A parent of another system gives an empty reference and adds nothing.
    ODB::ConstRef<ClassificationItem> AddItem (const ODB::ConstRef<ClassificationItem>& parent, const Kor::UniString& code,
                                               const Kor::UniString& name, const Kor::UniString& description = {});
    // The first item added with that code; empty when there is none.
    ODB::ConstRef<ClassificationItem>              FindItemByCode (const Kor::UniString& code) const;
    Kor::Array<ODB::ConstRef<ClassificationItem>> GetRootItems () const;

    // The typed traversal; an empty system reference visits nothing.
    static void TraverseClassificationsConstTyped (const ODB::ConstRef<ClassificationSystem>& system, int mode,
                                                   const TypedItemCallback& callback);

private:
    void Traverse (int mode, const std::function<bool (const std::shared_ptr<const ClassificationItem>&)>& visit) const;

    Kor::UniString                                                     name;
    Kor::UniString                                                     editionVersion;
    Kor::UniString                                                     description;
    std::vector<std::shared_ptr<ClassificationItem>>                   roots;
    std::unordered_map<Kor::UniString, std::weak_ptr<const ClassificationItem>> byCode;
    std::size_t                                                        itemCount = 0;
};

}   // namespace CLS
