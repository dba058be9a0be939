#ifndef ORV_T_TREE_NODE_H
#define ORV_T_TREE_NODE_H

#include "OrvTObjectArray.h"
#include "OrvTreeNodeException.h"

/// Base of the engine's trees (game assets, XML elements). T is the derived node
/// class itself. A node does not own its children.
///
/// AddChild and RemoveChild keep each child's parent pointer in step with the
/// parent's list, so "is it already a child?" is answered by the pointer
/// alone in the common case of a child without a parent: adding N children
/// costs N steps, not N²/2. Setting a parent by hand (SetParent) bypasses the
/// list; the tree's own operations never do.
template <class T>
class OrvTTreeNode
{
public:
    OrvTTreeNode() : m_parent(nullptr) {}
    virtual ~OrvTTreeNode() {}

    virtual void SetParent(T* parent) { m_parent = parent; }
    T* GetParent() const { return m_parent; }

    void AddChild(T* child)
    {
        if (child == nullptr)
            ORV_THROW(OrvTreeNodeException, "You tried to add a Null pointer as a child", "template/OrvTTreeNode");
        if (child->GetParent() != nullptr)
        {
            // Already one of the children: nothing happens.
            if (m_children.Contains(child))
                return;
            ORV_THROW(OrvTreeNodeException, "You tried to add a child that already has a parent", "template/OrvTTreeNode");
        }
        m_children.Add(child);
        child->SetParent(static_cast<T*>(this));
    }

    void RemoveChild(T* child)
    {
        if (child == nullptr)
            ORV_THROW(OrvTreeNodeException, "You tried to remove a Null pointer as a child", "template/OrvTTreeNode");
        const int index = m_children.Find(child);
        if (index < 0)
            return;
        child->SetParent(nullptr);
        m_children.RemoveIndex(static_cast<unsigned int>(index));
    }

    T* GetChild(unsigned int index) const { return m_children[index]; }
    unsigned int GetChildCount() const { return m_children.GetCount(); }

    OrvTObjectArray<T*>& GetChildren() { return m_children; }
    const OrvTObjectArray<T*>& GetChildren() const { return m_children; }

protected:
    T* m_parent;
    OrvTObjectArray<T*> m_children;
};

#endif
