// A drawing that is the current one, for tests of what works on the current drawing.
#pragma once

#include "EngineTest.h"

class DomainTest : public EngineTest {
  protected:
    DomainTest();
    ~DomainTest() override;
    static void makeCurrent(KelDbDatabase* database);
};
