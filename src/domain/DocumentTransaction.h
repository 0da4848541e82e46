// The guard around changes of the drawing that the user takes back as one.
#pragma once

/// A transaction of the current document, from its birth to its end. The document is asked for afresh at the end: when
/// there is none any more, the transaction stays the host's.
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
