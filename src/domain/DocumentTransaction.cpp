#include "DocumentTransaction.h"

#include "KelEditor.h"

namespace {

KelTransactionManager* currentTransactions() {
    KelApDocument* document = kelDocManagerPtr()->currentDocument();
    return document ? document->transactionManager() : nullptr;
}

} // namespace

DocumentTransaction::DocumentTransaction() {
    KelTransactionManager* transactions = currentTransactions();
    m_started = transactions && transactions->startTransaction();
}

DocumentTransaction::~DocumentTransaction() {
    KelTransactionManager* transactions = m_started ? currentTransactions() : nullptr;
    if (transactions)
        transactions->endTransaction();
}
