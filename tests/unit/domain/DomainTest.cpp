#include "DomainTest.h"

DomainTest::DomainTest() {
    makeCurrent(&m_database);
}

DomainTest::~DomainTest() {
    makeCurrent(nullptr);
}

void DomainTest::makeCurrent(KelDbDatabase* database) {
    keldbHostApplicationServices()->setWorkingDatabase(database);
    instruments::clearTrace();
}
