// The reserved operations of all contracts. They keep their places and nobody calls them: a call
// fails the test.
#pragma once

#include <gtest/gtest.h>

namespace support {

inline void ReservedOperationCalled() {
    ADD_FAILURE() << "a reserved operation was called";
}

/// Reserved1 to ReservedN of a contract, by the number in the name.
template <class Contract> class WithReserved1 : public Contract {
public:
    void Reserved1() override { ReservedOperationCalled(); }
};

template <class Contract> class WithReserved2 : public WithReserved1<Contract> {
public:
    void Reserved2() override { ReservedOperationCalled(); }
};

template <class Contract> class WithReserved5 : public WithReserved2<Contract> {
public:
    void Reserved3() override { ReservedOperationCalled(); }
    void Reserved4() override { ReservedOperationCalled(); }
    void Reserved5() override { ReservedOperationCalled(); }
};

template <class Contract> class WithReserved6 : public WithReserved5<Contract> {
public:
    void Reserved6() override { ReservedOperationCalled(); }
};

} // namespace support
