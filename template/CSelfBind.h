#ifndef C_SELF_BIND_H
#define C_SELF_BIND_H

#include "CBind.h"

/// A bind side that stands for the object that encloses it.
template <class T>
class CSelfBind : public CBind
{
public:
    explicit CSelfBind(T* self) { SetObject(self); }
    CSelfBind(const CSelfBind&) = delete;
    CSelfBind& operator=(const CSelfBind&) = delete;

    T* GetSelf() const { return static_cast<T*>(GetObject()); }
};

#endif
