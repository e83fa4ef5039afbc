#pragma once

namespace mrl::detail {

/// A number that may be absent. reset() leaves the number as it was, and comparison sees it: a value
/// that was set and reset differs from one that never was.
template <class T>
struct MRLNullable {
    T value{};
    int isNull = 1;

    T* get() { return isNull != 0 ? nullptr : &value; }
    const T* get() const { return isNull != 0 ? nullptr : &value; }
    void set(T v) {
        value = v;
        isNull = 0;
    }
    void reset() { isNull = 1; }

    bool operator==(const MRLNullable& other) const { return isNull == other.isNull && value == other.value; }
};

/// A decimal is kept in 32 bits, and is written from a 64-bit copy made when the writer asks.
template <>
struct MRLNullable<float> {
    float value{};
    int isNull = 1;
    double wide{};

    float* get() { return isNull != 0 ? nullptr : &value; }
    const float* get() const { return isNull != 0 ? nullptr : &value; }
    double* getWide() {
        wide = static_cast<double>(value);
        return isNull != 0 ? nullptr : &wide;
    }
    void set(float v) {
        value = v;
        isNull = 0;
    }
    void reset() { isNull = 1; }

    bool operator==(const MRLNullable& other) const { return isNull == other.isNull && value == other.value; }
};

} // namespace mrl::detail
