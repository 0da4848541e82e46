#include "Documents.h"

#include "RuntimeParts.h"
#include "engine/DatabaseAccess.h"
#include "instruments/HostCalls.h"

#include <algorithm>

using instruments::HostCall;

KelTransactionManager::~KelTransactionManager() = default;
KelApDocument::~KelApDocument() = default;
KelApDocManager::~KelApDocManager() = default;

/// The token of a transaction; only its address is used.
class KelTransaction {};

namespace runtime {

namespace {

std::vector<std::unique_ptr<Document>> g_documents; // in the order in which they were opened
Document* g_current = nullptr;

class DocumentManager : public KelApDocManager {
  public:
    KelApDocument* currentDocument() const override {
        HostCall call("currentDocument");
        return call.answer(call.fault() ? nullptr : g_current);
    }
};

DocumentManager g_manager;

void makeCurrent(Document* document) {
    g_current = document;
    setWorkingDatabase(document ? &document->data() : nullptr);
}

} // namespace

TransactionManager::TransactionManager(KelDbDatabase& database) : m_database(database) {}

TransactionManager::~TransactionManager() {
    // A transaction that a module left open must not stay in the ledger: something else may get its address.
    for (const auto& transaction : m_open)
        instruments::giveBack(transaction.get());
}

KelTransaction* TransactionManager::startTransaction() {
    HostCall call("startTransaction");
    return call.valueOr<KelTransaction*>(nullptr, [this] {
        auto transaction = std::make_unique<KelTransaction>();
        m_open.reserve(m_open.size() + 1);
        engine::beginUndoGroup(m_database);
        m_open.push_back(std::move(transaction));
        instruments::entrust(m_open.back().get(), "transaction");
        return m_open.back().get();
    });
}

Vorn::ErrorStatus TransactionManager::endTransaction() {
    HostCall call("endTransaction");
    if (m_open.empty())
        return call.answer(Vorn::eNotApplicable);
    engine::endUndoGroup(m_database);
    instruments::giveBack(m_open.back().get());
    m_open.pop_back();
    return call.answer(call.fault().value_or(Vorn::eOk));
}

Document::Document(std::unique_ptr<KelDbDatabase> database, std::wstring fileName)
    : m_database(std::move(database)), m_fileName(std::move(fileName)), m_transactions(*m_database) {}

Document::~Document() = default;

KelDbDatabase* Document::database() const {
    HostCall call("database");
    return call.answer(call.fault() ? nullptr : m_database.get());
}

const wchar_t* Document::fileName() const {
    HostCall call("fileName");
    return call.answer(m_fileName.c_str());
}

KelTransactionManager* Document::transactionManager() {
    HostCall call("transactionManager");
    return call.answer(call.fault() ? nullptr : &m_transactions);
}

Document& openDocument(std::unique_ptr<KelDbDatabase> database, std::wstring fileName) {
    g_documents.push_back(std::make_unique<Document>(std::move(database), std::move(fileName)));
    makeCurrent(g_documents.back().get());
    return *g_documents.back();
}

void closeDocument(Document& document) {
    const auto isIt = [&document](const auto& open) { return open.get() == &document; };
    const auto found = std::find_if(g_documents.begin(), g_documents.end(), isIt);
    if (found == g_documents.end())
        return;
    const std::unique_ptr<Document> closing = std::move(*found);
    g_documents.erase(found);
    if (g_current == closing.get())
        makeCurrent(g_documents.empty() ? nullptr : g_documents.back().get());
}

Document* currentDocument() {
    return g_current;
}

void setCurrentDocument(Document& document) {
    makeCurrent(&document);
}

std::size_t documentCount() {
    return g_documents.size();
}

void resetDocuments() {
    makeCurrent(nullptr);
    g_documents.clear();
}

} // namespace runtime

KelApDocManager* kelDocManagerPtr() {
    HostCall call("kelDocManagerPtr");
    return &runtime::g_manager;
}

KelDbObjectId keledGetCurViewportObjectId() {
    HostCall call("keledGetCurViewportObjectId");
    const runtime::Document* document = runtime::currentDocument();
    const bool any = document && !call.fault();
    return call.answer(any ? engine::currentViewportId(document->data()) : KelDbObjectId());
}
