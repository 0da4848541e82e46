// The guard around changes of the drawing that one undo takes back together.
#pragma once

/// Starts a transaction of the current document and ends it with its own end. The destructor asks again which document
/// is current; when there is none any more, ending the transaction is left to the host.
class DocumentTransaction {
  public:
    DocumentTransaction();
    ~DocumentTransaction();
    DocumentTransaction(const DocumentTransaction&) = delete;
    DocumentTransaction& operator=(const DocumentTransaction&) = delete;
    /// False without a document, or when the host refuses.
    bool isStarted() const { return m_started; }

  private:
    bool m_started;
};
