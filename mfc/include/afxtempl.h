// The collection templates CArray and CList with MFC's documented members. POSITION is a node of the list, null at its
// end. An index outside of the array, a null position and the head of an empty list throw a CInvalidArgException, as in
// MFC. Narrower than MFC: no CMap, no serialization; growing is the standard library's, so a grow-by value is taken and
// ignored.
#pragma once

#include "kelmfc/CException.h"

#include <utility>
#include <vector>

struct __POSITION {};
/// A place in a list; null is no place.
using POSITION = __POSITION*;

template <class TYPE, class ARG_TYPE = const TYPE&> class CArray : public CObject {
    static_assert(!std::is_same_v<TYPE, bool>, "use BOOL: elements must have addresses");

  public:
    INT_PTR GetSize() const { return static_cast<INT_PTR>(m_items.size()); }
    INT_PTR GetCount() const { return GetSize(); }
    BOOL IsEmpty() const { return m_items.empty() ? TRUE : FALSE; }
    INT_PTR GetUpperBound() const { return GetSize() - 1; }
    void SetSize(INT_PTR nNewSize, INT_PTR = -1) {
        Require(nNewSize >= 0);
        m_items.resize(Index(nNewSize));
    }
    void FreeExtra() { m_items.shrink_to_fit(); }
    void RemoveAll() { m_items.clear(); }

    const TYPE& GetAt(INT_PTR nIndex) const { return m_items[Present(nIndex)]; }
    TYPE& GetAt(INT_PTR nIndex) { return m_items[Present(nIndex)]; }
    TYPE& ElementAt(INT_PTR nIndex) { return GetAt(nIndex); }
    const TYPE& operator[](INT_PTR nIndex) const { return GetAt(nIndex); }
    TYPE& operator[](INT_PTR nIndex) { return GetAt(nIndex); }
    void SetAt(INT_PTR nIndex, ARG_TYPE newElement) { GetAt(nIndex) = newElement; }
    void SetAtGrow(INT_PTR nIndex, ARG_TYPE newElement) {
        Require(nIndex >= 0);
        // A copy, because the reference may be to an element of this array, which growing moves.
        TYPE element(newElement);
        if (nIndex >= GetSize())
            SetSize(nIndex + 1);
        m_items[Index(nIndex)] = std::move(element);
    }
    const TYPE* GetData() const { return m_items.data(); }
    TYPE* GetData() { return m_items.data(); }

    /// The index of the new element.
    INT_PTR Add(ARG_TYPE newElement) {
        m_items.push_back(newElement);
        return GetUpperBound();
    }
    /// The index of the first element added.
    INT_PTR Append(const CArray& src) {
        const INT_PTR first = GetSize();
        const std::vector<TYPE> copy = src.m_items;
        m_items.insert(m_items.end(), copy.begin(), copy.end());
        return first;
    }
    void Copy(const CArray& src) { m_items = src.m_items; }
    void InsertAt(INT_PTR nIndex, ARG_TYPE newElement, INT_PTR nCount = 1) {
        Require(nIndex >= 0 && nCount > 0);
        const TYPE element(newElement);
        if (nIndex > GetSize())
            SetSize(nIndex);
        m_items.insert(m_items.begin() + nIndex, Index(nCount), element);
    }
    void InsertAt(INT_PTR nStartIndex, const CArray* pNewArray) {
        Require(nStartIndex >= 0 && pNewArray);
        const std::vector<TYPE> copy = pNewArray->m_items;
        if (nStartIndex > GetSize())
            SetSize(nStartIndex);
        m_items.insert(m_items.begin() + nStartIndex, copy.begin(), copy.end());
    }
    void RemoveAt(INT_PTR nIndex, INT_PTR nCount = 1) {
        Require(nIndex >= 0 && nCount >= 0 && nIndex + nCount <= GetSize());
        m_items.erase(m_items.begin() + nIndex, m_items.begin() + nIndex + nCount);
    }

  private:
    static void Require(bool isValid) {
        if (!isValid)
            AfxThrowInvalidArgException();
    }
    static std::size_t Index(INT_PTR index) { return static_cast<std::size_t>(index); }
    std::size_t Present(INT_PTR index) const {
        Require(index >= 0 && index < GetSize());
        return Index(index);
    }

    std::vector<TYPE> m_items;
};

template <class TYPE, class ARG_TYPE = const TYPE&> class CList : public CObject {
  public:
    /// The size of MFC's memory blocks is taken and ignored.
    explicit CList(INT_PTR = 10) {}
    ~CList() override { RemoveAll(); }

    INT_PTR GetCount() const { return m_count; }
    INT_PTR GetSize() const { return m_count; }
    BOOL IsEmpty() const { return m_count == 0 ? TRUE : FALSE; }

    TYPE& GetHead() { return At(m_head)->value; }
    const TYPE& GetHead() const { return At(m_head)->value; }
    TYPE& GetTail() { return At(m_tail)->value; }
    const TYPE& GetTail() const { return At(m_tail)->value; }

    POSITION AddHead(ARG_TYPE newElement) { return Link(new Node(newElement), nullptr, m_head); }
    POSITION AddTail(ARG_TYPE newElement) { return Link(new Node(newElement), m_tail, nullptr); }
    void AddHead(CList* pNewList) {
        for (Node* node = pNewList->m_tail; node; node = node->previous)
            AddHead(node->value);
    }
    void AddTail(CList* pNewList) {
        for (Node* node = pNewList->m_head; node; node = node->next)
            AddTail(node->value);
    }
    TYPE RemoveHead() { return Take(At(m_head)); }
    TYPE RemoveTail() { return Take(At(m_tail)); }
    void RemoveAll() {
        while (m_head)
            Take(m_head);
    }
    void RemoveAt(POSITION position) { Take(At(position)); }

    POSITION GetHeadPosition() const { return m_head; }
    POSITION GetTailPosition() const { return m_tail; }
    TYPE& GetNext(POSITION& rPosition) {
        Node* node = At(rPosition);
        rPosition = node->next;
        return node->value;
    }
    const TYPE& GetNext(POSITION& rPosition) const { return const_cast<CList*>(this)->GetNext(rPosition); }
    TYPE& GetPrev(POSITION& rPosition) {
        Node* node = At(rPosition);
        rPosition = node->previous;
        return node->value;
    }
    const TYPE& GetPrev(POSITION& rPosition) const { return const_cast<CList*>(this)->GetPrev(rPosition); }
    TYPE& GetAt(POSITION position) { return At(position)->value; }
    const TYPE& GetAt(POSITION position) const { return At(position)->value; }
    void SetAt(POSITION position, ARG_TYPE newElement) { At(position)->value = newElement; }
    /// Null as a position means the head.
    POSITION InsertBefore(POSITION position, ARG_TYPE newElement) {
        if (!position)
            return AddHead(newElement);
        return Link(new Node(newElement), At(position)->previous, At(position));
    }
    /// Null as a position means the tail.
    POSITION InsertAfter(POSITION position, ARG_TYPE newElement) {
        if (!position)
            return AddTail(newElement);
        return Link(new Node(newElement), At(position), At(position)->next);
    }
    /// The first place after `startAfter` (null: from the head) that holds an equal value, or null.
    POSITION Find(ARG_TYPE searchValue, POSITION startAfter = nullptr) const {
        for (Node* node = startAfter ? At(startAfter)->next : m_head; node; node = node->next)
            if (node->value == searchValue)
                return node;
        return nullptr;
    }
    /// The place of the element of that number, or null.
    POSITION FindIndex(INT_PTR nIndex) const {
        if (nIndex < 0)
            return nullptr;
        Node* node = m_head;
        while (node && nIndex-- > 0)
            node = node->next;
        return node;
    }

  private:
    struct Node : __POSITION {
        Node* previous = nullptr;
        Node* next = nullptr;
        TYPE value;
        explicit Node(ARG_TYPE element) : value(element) {}
    };

    static Node* At(POSITION position) {
        if (!position)
            AfxThrowInvalidArgException();
        return static_cast<Node*>(position);
    }
    POSITION Link(Node* node, Node* previous, Node* next) {
        node->previous = previous;
        node->next = next;
        (previous ? previous->next : m_head) = node;
        (next ? next->previous : m_tail) = node;
        ++m_count;
        return node;
    }
    TYPE Take(Node* node) {
        TYPE value(std::move(node->value));
        (node->previous ? node->previous->next : m_head) = node->next;
        (node->next ? node->next->previous : m_tail) = node->previous;
        delete node;
        --m_count;
        return value;
    }

    Node* m_head = nullptr;
    Node* m_tail = nullptr;
    INT_PTR m_count = 0;
};
