// The application's open drawings: what the document manager answers from.
#pragma once

#include "KelEditor.h"

#include <memory>
#include <string>
#include <vector>

namespace runtime {

/// A transaction manager that makes one undo step of all that happens between the outermost start and its end.
class TransactionManager : public KelTransactionManager {
  public:
    explicit TransactionManager(KelDbDatabase& database);
    ~TransactionManager() override;
    TransactionManager(const TransactionManager&) = delete;
    TransactionManager& operator=(const TransactionManager&) = delete;

    KelTransaction* startTransaction() override;
    /// Ends the transaction also when it is made to answer a failure.
    Vorn::ErrorStatus endTransaction() override;
    /// How many transactions are under way, one within the other.
    std::size_t depth() const { return m_open.size(); }

  private:
    KelDbDatabase& m_database;
    std::vector<std::unique_ptr<KelTransaction>> m_open;
};

/// An open drawing. It owns its database.
class Document : public KelApDocument {
  public:
    /// @param fileName full path, or empty for a drawing that was never saved
    Document(std::unique_ptr<KelDbDatabase> database, std::wstring fileName);
    ~Document() override;

    KelDbDatabase* database() const override;
    const wchar_t* fileName() const override;
    KelTransactionManager* transactionManager() override;

    KelDbDatabase& data() const { return *m_database; }
    const std::wstring& path() const { return m_fileName; }
    void setPath(std::wstring fileName) { m_fileName = std::move(fileName); }

  private:
    std::unique_ptr<KelDbDatabase> m_database;
    std::wstring m_fileName;
    TransactionManager m_transactions;
};

/// Opens a document, which becomes the current one; its database becomes the working database.
KELDB_API Document& openDocument(std::unique_ptr<KelDbDatabase> database, std::wstring fileName);
/// Closes a document with its database. The one opened last among the rest becomes the current one.
KELDB_API void closeDocument(Document& document);
/// Null when no document is open.
KELDB_API Document* currentDocument();
/// Makes an open document the current one.
KELDB_API void setCurrentDocument(Document& document);
KELDB_API std::size_t documentCount();

} // namespace runtime
