// Base of tests of the runtime: every test finds a fresh runtime with the instruments on, and leaves the ledger empty.
#pragma once

#include "Runtime.h"
#include "instruments/HostCalls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

class RuntimeTest : public testing::Test {
  protected:
    RuntimeTest() {
        runtime::reset();
        instruments::watch(true);
    }
    ~RuntimeTest() override {
        EXPECT_THAT(instruments::ledger(), testing::IsEmpty());
        instruments::watch(false);
        runtime::reset();
    }
};
