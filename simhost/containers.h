// simhost/containers.h
// What a project's tracks and items lie in: boxes, so that they stay where they are, and lists of those.
#pragma once
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace simhost {

// A value that lives at an address of its own. It is copied in depth, like a plain value. Pointers to it stay good when
// the list that holds it grows or its box is moved. It is empty only after being moved from.
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

// A list with its spare room kept where it was last changed: inserting and removing near there costs nothing that grows
// with the list, and any element is reached by its index at once. Cutting an item into thousands of pieces stays
// linear.
template <class T>
class GapList {
  public:
    size_t size() const { return before_.size() + after_.size(); }
    bool empty() const { return size() == 0; }
    T& operator[](size_t i) { return i < before_.size() ? before_[i] : after_[size() - 1 - i]; }
    const T& operator[](size_t i) const { return i < before_.size() ? before_[i] : after_[size() - 1 - i]; }

    void Insert(size_t index, T value) {
        MoveGap(index);
        before_.push_back(std::move(value));
    }
    T Remove(size_t index) {
        MoveGap(index + 1);
        T value = std::move(before_.back());
        before_.pop_back();
        return value;
    }

    // Range for, in order.
    template <class List>
    struct Place {
        List* list;
        size_t index;
        decltype(auto) operator*() const { return (*list)[index]; }
        Place& operator++() {
            ++index;
            return *this;
        }
        bool operator!=(const Place& other) const { return index != other.index; }
    };
    Place<GapList> begin() { return {this, 0}; }
    Place<GapList> end() { return {this, size()}; }
    Place<const GapList> begin() const { return {this, 0}; }
    Place<const GapList> end() const { return {this, size()}; }

  private:
    void MoveGap(size_t index) {
        for (; before_.size() > index; before_.pop_back()) after_.push_back(std::move(before_.back()));
        for (; before_.size() < index; after_.pop_back()) before_.push_back(std::move(after_.back()));
    }

    std::vector<T> before_;  // in order
    std::vector<T> after_;   // backwards
};

}  // namespace simhost
