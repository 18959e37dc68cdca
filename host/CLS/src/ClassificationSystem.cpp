#include "CLS/ClassificationSystem.hpp"

#include <deque>

namespace CLS {

IClassificationSystem::~IClassificationSystem () = default;

ClassificationSystem::ClassificationSystem (const Kor::UniString& name, const Kor::UniString& editionVersion,
                                            const Kor::UniString& description)
    : name (name), editionVersion (editionVersion), description (description)
{
}

ClassificationSystem::~ClassificationSystem () = default;

ODB::Ref<ClassificationSystem> ClassificationSystem::Create (const Kor::UniString& name, const Kor::UniString& editionVersion,
                                                             const Kor::UniString& description)
{
    return ODB::NewRef<ClassificationSystem> (name, editionVersion, description);
}

Kor::UniString ClassificationSystem::GetDisplayName () const
{
    if (editionVersion.IsEmpty ()) return name;
    return name + " " + editionVersion;
}

ODB::ConstRef<ClassificationItem> ClassificationSystem::AddItem (const ODB::ConstRef<ClassificationItem>& parent, const Kor::UniString& code,
                                                                 const Kor::UniString& itemName, const Kor::UniString& itemDescription)
{
    if (!parent.IsNull () && !parent->IsOf (*this)) return {};
    auto item = std::make_shared<ClassificationItem> (ClassificationItem::Key {}, *this, code, itemName, itemDescription);
    if (parent.IsNull ()) {
        roots.push_back (item);
    } else {
        // The system made the parent, so it may add to it.
        auto& mutableParent = const_cast<ClassificationItem&> (*parent);
        item->parent = parent.GetShared ();
        mutableParent.children.push_back (item);
    }
    byCode.try_emplace (code, item);
    ++itemCount;
    return ODB::ConstRef<ClassificationItem>::FromShared (item);
}

ODB::ConstRef<ClassificationItem> ClassificationSystem::FindItemByCode (const Kor::UniString& code) const
{
    auto it = byCode.find (code);
    if (it == byCode.end ()) return {};
    return ODB::ConstRef<ClassificationItem>::FromShared (it->second.lock ());
}

Kor::Array<ODB::ConstRef<ClassificationItem>> ClassificationSystem::GetRootItems () const
{
    Kor::Array<ODB::ConstRef<ClassificationItem>> result;
    for (const auto& root : roots) result.Push (ODB::ConstRef<ClassificationItem>::FromShared (root));
    return result;
}

void ClassificationSystem::Traverse (int mode, const std::function<bool (const std::shared_ptr<const ClassificationItem>&)>& visit) const
{
    if (mode == LevelOrder) {
        std::deque<std::shared_ptr<const ClassificationItem>> queue (roots.begin (), roots.end ());
        while (!queue.empty ()) {
            std::shared_ptr<const ClassificationItem> item = std::move (queue.front ());
            queue.pop_front ();
            if (!visit (item)) return;
            queue.insert (queue.end (), item->children.begin (), item->children.end ());
        }
        return;
    }
    // Depth first without recursion, so that deep trees cannot exhaust the stack.
    std::vector<std::shared_ptr<const ClassificationItem>> stack (roots.rbegin (), roots.rend ());
    while (!stack.empty ()) {
        std::shared_ptr<const ClassificationItem> item = std::move (stack.back ());
        stack.pop_back ();
        if (!visit (item)) return;
        stack.insert (stack.end (), item->children.rbegin (), item->children.rend ());
    }
}

void ClassificationSystem::TraverseClassificationsConst (int mode, const ItemCallback& callback) const
{
    Traverse (mode, [&callback] (const std::shared_ptr<const ClassificationItem>& item) {
        return callback (ODB::ConstRef<ClassificationItem>::FromShared (item));
    });
}

void ClassificationSystem::TraverseClassificationsConstTyped (const ODB::ConstRef<ClassificationSystem>& system, int mode,
                                                              const TypedItemCallback& callback)
{
    if (system.IsNull ()) return;
    system->Traverse (mode, [&callback] (const std::shared_ptr<const ClassificationItem>& item) {
        return callback (ODB::ConstRef<ClassificationItem>::FromShared (item));
    });
}

}   // namespace CLS
