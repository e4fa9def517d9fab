// Holds one reference on a reference-counted toolkit object and gives it back when it goes.
#pragma once

#include <utility>

template <class T> class SharedPointer
{
  public:
    SharedPointer() = default;
    // Takes one more reference on object (null is allowed).
    explicit SharedPointer(T* object) : object(object)
    {
        if (object) object->remember();
    }
    SharedPointer(const SharedPointer& other) : SharedPointer(other.object) {}
    SharedPointer(SharedPointer&& other) noexcept : object(std::exchange(other.object, nullptr)) {}
    // The new reference is taken before the old one is given back, so assigning the same object is safe.
    SharedPointer& operator=(SharedPointer other)
    {
        std::swap(object, other.object);
        return *this;
    }
    ~SharedPointer()
    {
        if (object) object->forget();
    }

    // Takes over the reference the caller holds, the one a fresh `new` comes with.
    static SharedPointer adopt(T* object)
    {
        SharedPointer pointer;
        pointer.object = object;
        return pointer;
    }

    // Hands the reference on to whoever takes the object over (a view that lets itself go when it closes);
    // this pointer is empty afterwards.
    T* release() { return std::exchange(object, nullptr); }

    T* get() const { return object; }
    T* operator->() const { return object; }
    explicit operator bool() const { return object != nullptr; }

  private:
    T* object = nullptr;
};

// An owner of a freshly made object: owned(new CBitmap(kBackgroundBitmap)).
template <class T> SharedPointer<T> owned(T* object)
{
    return SharedPointer<T>::adopt(object);
}
