// Counted handles: shared ownership by a separate counter, and copy on first write.
//
// Copying a handle is one increment, so keywords, lists and maps travel by value.
// Counters are plain ints: a value and all its copies belong to one thread.
#ifndef COW_COW_H
#define COW_COW_H

#include <cstddef>
#include <new>
#include <utility>

// The share count of one object. Counters have allocation operators of their own so
// that their allocation can be tuned apart from the objects they count.
struct cow_Counter {
    int count;
    explicit cow_Counter(int c = 1) : count(c) {}
    static void* operator new(std::size_t size) { return ::operator new(size); }
    static void operator delete(void* p) { ::operator delete(p); }
};

// Clone policies.
template <class T>
struct cow_Direct {
    static T* Copy(const T& t) { return new T(t); }
};

// For polymorphic payloads: T has `virtual T* Copy() const`.
template <class T>
struct cow_Virtual {
    static T* Copy(const T& t) { return t.Copy(); }
};

template <class T>
class cow_CountedHld {
public:
    cow_CountedHld() : m_counter(nullptr), m_object(nullptr) {}
    explicit cow_CountedHld(T* object) : m_counter(object ? new cow_Counter(1) : nullptr), m_object(object) {}
    cow_CountedHld(const cow_CountedHld& o) : m_counter(o.m_counter), m_object(o.m_object) {
        if (m_counter) ++m_counter->count;
    }
    cow_CountedHld(cow_CountedHld&& o) noexcept : m_counter(o.m_counter), m_object(o.m_object) {
        o.m_counter = nullptr;
        o.m_object = nullptr;
    }
    ~cow_CountedHld() { Release(); }

    cow_CountedHld& operator=(const cow_CountedHld& o) {
        cow_Counter* counter = o.m_counter;  // o may be *this
        T* object = o.m_object;
        if (counter) ++counter->count;  // first increment: self-assignment is safe
        Release();
        m_counter = counter;
        m_object = object;
        return *this;
    }
    cow_CountedHld& operator=(cow_CountedHld&& o) noexcept {
        if (this != &o) {
            Release();
            m_counter = o.m_counter;
            m_object = o.m_object;
            o.m_counter = nullptr;
            o.m_object = nullptr;
        }
        return *this;
    }

    bool HasValue() const { return m_object != nullptr; }
    int ShareCount() const { return m_counter ? m_counter->count : 0; }
    const T& ConstGet() const { return *m_object; }
    const T* operator->() const { return m_object; }
    const T& operator*() const { return *m_object; }
    const T* Pointer() const { return m_object; }
    // Writable access without copy: for objects that are meant to be shared mutable.
    T& SharedGet() const { return *m_object; }

    void Delete() {
        if (!m_counter) return;
        delete m_object;
        delete m_counter;
        m_object = nullptr;
        m_counter = nullptr;
    }

protected:
    void Release() {
        if (m_counter && --m_counter->count == 0) {
            delete m_object;
            delete m_counter;
        }
        m_counter = nullptr;
        m_object = nullptr;
    }
    // Takes ownership of a raw pointer.
    void Adopt(T* object) {
        if (object == m_object) return;
        if (m_counter && m_counter->count == 1) {
            delete m_object;  // keep the counter
            m_object = object;
            if (!object) { delete m_counter; m_counter = nullptr; }
            return;
        }
        Release();
        if (object) {
            m_counter = new cow_Counter(1);
            m_object = object;
        }
    }

    cow_Counter* m_counter;
    T* m_object;
};

// Handle that always holds an object (a new T by default) and copies on write.
template <class T, class Policy = cow_Direct<T>>
class cow_COW : public cow_CountedHld<T> {
    using Base = cow_CountedHld<T>;

public:
    cow_COW() : Base(new T()) {}
    cow_COW(T* object) : Base(object) {}
    cow_COW(const cow_COW&) = default;
    cow_COW(cow_COW&&) noexcept = default;
    cow_COW& operator=(const cow_COW&) = default;
    cow_COW& operator=(cow_COW&&) noexcept = default;
    cow_COW& operator=(T* object) {
        this->Adopt(object);
        return *this;
    }

    // Writable access: makes a private clone first when the object is shared.
    T& Get() {
        if (this->m_counter && this->m_counter->count != 1) {
            T* clone = Policy::Copy(*this->m_object);
            --this->m_counter->count;
            this->m_counter = new cow_Counter(1);
            this->m_object = clone;
        }
        return *this->m_object;
    }
};

// The same handle with a default constructor that holds nothing: the form kept in
// arrays and maps.
template <class T, class Policy = cow_Direct<T>>
class cow_ArrayCOW : public cow_COW<T, Policy> {
    using Base = cow_COW<T, Policy>;

public:
    cow_ArrayCOW() : Base(static_cast<T*>(nullptr)) {}
    cow_ArrayCOW(T* object) : Base(object) {}
    cow_ArrayCOW(const Base& o) : Base(o) {}
    cow_ArrayCOW(const cow_ArrayCOW&) = default;
    cow_ArrayCOW(cow_ArrayCOW&&) noexcept = default;
    cow_ArrayCOW& operator=(const cow_ArrayCOW&) = default;
    cow_ArrayCOW& operator=(cow_ArrayCOW&&) noexcept = default;
    cow_ArrayCOW& operator=(T* object) {
        Base::operator=(object);
        return *this;
    }
};

// Handles compare equal when they share one object.
template <class T, class P>
bool operator==(const cow_COW<T, P>& a, const cow_COW<T, P>& b) { return a.Pointer() == b.Pointer(); }
template <class T, class P>
bool operator!=(const cow_COW<T, P>& a, const cow_COW<T, P>& b) { return a.Pointer() != b.Pointer(); }

#endif
