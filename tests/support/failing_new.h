#pragma once

namespace chromalog::test {

/// While it lives, one allocation by `new` of this thread fails: the n-th from its making, 1 the next one.
/// For a test program that links failing_new.cpp, which replaces the operators.
class FailingNew {
  public:
    /// Which allocations count: all, or those that this program's own code and the C++ library make, and not
    /// those of other libraries.
    enum class Of { all, ownCode };

    explicit FailingNew(long n, Of = Of::all);
    ~FailingNew();
    FailingNew(const FailingNew&) = delete;
    FailingNew& operator=(const FailingNew&) = delete;

    bool stop(); ///< none fails from now on; whether the n-th was asked for
};

} // namespace chromalog::test
