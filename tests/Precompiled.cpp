// What every program of tests shares, precompiled.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
