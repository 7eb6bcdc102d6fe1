#pragma once

namespace chromalog {

/// A control that an interface file may or may not have connected. Unconnected, it is the control's null
/// object.
template <typename T> class Outlet {
  public:
    void connect(T* control) { control_ = control; }
    bool connected() const { return control_ != nullptr; }
    T* operator->() const { return &**this; }
    T& operator*() const { return control_ ? *control_ : null_; }
    /// Whether this outlet is connected to that very control.
    bool is(const void* control) const { return control_ && control == control_; }

  private:
    T* control_ = nullptr;
    static inline T null_{};
};

} // namespace chromalog
