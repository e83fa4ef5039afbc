#pragma once

#include <cstddef>
#include <utility>

/// Holds one counted reference to a T (HBLReferenceCount or its base), or none.
template <class T>
class HBLSmartPointer {
public:
    HBLSmartPointer() noexcept = default;
    HBLSmartPointer(std::nullptr_t) noexcept {}
    /// Adds a reference.
    HBLSmartPointer(T* object)
        : m_object(object) {
        add();
    }
    HBLSmartPointer(const HBLSmartPointer& other)
        : m_object(other.m_object) {
        add();
    }
    HBLSmartPointer(HBLSmartPointer&& other) noexcept
        : m_object(std::exchange(other.m_object, nullptr)) {}
    template <class U>
    HBLSmartPointer(const HBLSmartPointer<U>& other)
        : m_object(other.get()) {
        add();
    }
    ~HBLSmartPointer() { remove(m_object); }

    HBLSmartPointer& operator=(HBLSmartPointer other) noexcept {
        std::swap(m_object, other.m_object);
        return *this;
    }

    T* get() const noexcept { return m_object; }
    T* operator->() const noexcept { return m_object; }
    T& operator*() const noexcept { return *m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }
    friend bool operator==(const HBLSmartPointer& a, const HBLSmartPointer& b) noexcept {
        return a.m_object == b.m_object;
    }
    friend bool operator==(const HBLSmartPointer& a, const T* b) noexcept { return a.m_object == b; }

private:
    void add() const {
        if (m_object)
            m_object->addReference();
    }
    static void remove(T* object) {
        if (object)
            object->removeReference();
    }

    T* m_object = nullptr;
};
