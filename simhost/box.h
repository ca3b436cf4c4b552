// simhost/box.h
// A value that lives at an address of its own. It is copied in depth, like a plain value. Pointers to it stay good when
// the list that holds it grows or its box is moved. It is empty only after being moved from.
#pragma once
#include <memory>
#include <utility>

namespace simhost {

template <class T>
class Box {
  public:
    Box() : value_(std::make_unique<T>()) {}
    explicit Box(T value) : value_(std::make_unique<T>(std::move(value))) {}
    Box(const Box& other) : value_(std::make_unique<T>(*other)) {}
    Box(Box&&) noexcept = default;
    Box& operator=(Box other) noexcept {
        value_ = std::move(other.value_);
        return *this;
    }

    T& operator*() { return *value_; }
    const T& operator*() const { return *value_; }
    T* operator->() { return value_.get(); }
    const T* operator->() const { return value_.get(); }

  private:
    std::unique_ptr<T> value_;
};

}  // namespace simhost
