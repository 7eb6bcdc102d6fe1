#pragma once

#include <type_traits>

extern "C" {
void* objc_getClass(const char* name);
void* sel_registerName(const char* name);
void objc_msgSend(void);
}

/// Messages to the system's objects by the runtime's C functions: a handful of them is not worth another
/// language, and this compiles without the system's frameworks at hand.
namespace chromalog::mac {

using Object = void*;

inline Object classNamed(const char* name) {
    return objc_getClass(name);
}

/// `send<double>(colour, "redComponent")`. Null receivers answer 0. Arguments must have exactly the types
/// that the method declares (a number that is CGFloat there is double); results that are structures need
/// another function.
template <typename Result = Object, typename... Arguments>
Result send(Object receiver, const char* selector, Arguments... arguments) {
    static_assert(!std::is_class_v<Result>);
    using Method = Result (*)(Object, void*, Arguments...);
    return reinterpret_cast<Method>(&objc_msgSend)(receiver, sel_registerName(selector), arguments...);
}

/// An autoreleased string.
inline Object textOf(const char* utf8) {
    return send(classNamed("NSString"), "stringWithUTF8String:", utf8);
}

/// What is autoreleased meanwhile goes at its end. A host's loop has such a pool, but not while a module is
/// opened.
class ReleasePool {
  public:
    ReleasePool() : pool_(send(send(classNamed("NSAutoreleasePool"), "alloc"), "init")) {}
    ~ReleasePool() { send<void>(pool_, "drain"); }
    ReleasePool(const ReleasePool&) = delete;
    ReleasePool& operator=(const ReleasePool&) = delete;

  private:
    Object pool_;
};

} // namespace chromalog::mac
