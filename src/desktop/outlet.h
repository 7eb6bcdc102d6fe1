#pragma once

namespace chromalog {

/// A control that an interface file may or may not have connected. Unconnected, it is the control's null
/// object, which holds no data: nothing that a caller gives it is kept.
template <typename T> class Outlet {
  public:
    void connect(T* control) { control_ = control; }
    bool connected() const { return control_ != nullptr; }
    T* operator->() const { return &**this; }
    T& operator*() const {
        static_assert(sizeof(T) <= 2 * sizeof(void*), "a null object keeps nothing");
        return control_ ? *control_ : null_;
    }
    /// Whether this outlet is connected to that very control.
    bool is(const void* control) const { return control_ && control == control_; }

  private:
    T* control_ = nullptr;
    static inline T null_{};
};

} // namespace chromalog
