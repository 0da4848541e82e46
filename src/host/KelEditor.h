// The host's editor: documents and transactions, system variables, display, viewports, names.
#pragma once

#include "KelArray.h"
#include "KelDbDatabase.h"

/// A transaction under way; a token without operations.
class KelTransaction;

/// Brackets changes of one document that are undone together.
class KELDB_API KelTransactionManager {
  public:
    virtual ~KelTransactionManager();
    /// Null when no transaction can be opened. Transactions nest.
    virtual KelTransaction* startTransaction() = 0;
    /// Ends the innermost transaction and keeps its changes, also when memory runs out: what is undone at once may then
    /// be one step with what follows. eNotApplicable when none is under way.
    virtual Vorn::ErrorStatus endTransaction() = 0;
};

/// An open drawing of the application.
class KELDB_API KelApDocument {
  public:
    virtual ~KelApDocument();
    virtual KelDbDatabase* database() const = 0;
    virtual const wchar_t* fileName() const = 0;
    virtual KelTransactionManager* transactionManager() = 0;
};

class KELDB_API KelApDocManager {
  public:
    virtual ~KelApDocManager();
    /// Null when no document is open.
    virtual KelApDocument* currentDocument() const = 0;
};

/// The one document manager; never null.
KELDB_API KelApDocManager* kelDocManagerPtr();

/// Reads a system variable into a node that the caller holds. kResultNormal on success; otherwise, as without memory,
/// kResultError, and the node is as it was.
KELDB_API int keledGetVar(const wchar_t* name, ResultBuffer* result);
/// The current viewport's id, or the null id on the model tab and in paper space itself.
KELDB_API KelDbObjectId keledGetCurViewportObjectId();
/// Regenerates what lies on those layers. `pending` is the answer of keledRegenPending().
KELDB_API void keledRegenLayers(const KelArray<KelDbObjectId>& layers, int pending);
/// Non-zero when a regeneration is due.
KELDB_API int keledRegenPending();
/// Publishes the layer table's changes to the host.
KELDB_API Vorn::ErrorStatus applyCurZdrLayerTableChanges();
/// What stands behind the name of the running command on its line, without the blanks around it; empty where nothing
/// does, and where no line runs. A text that stays the host's, until the command ends.
KELDB_API const wchar_t* keledCommandArguments();
/// Repaints.
KELDB_API void keledUpdateDisplay();
/// RGB of a palette index, with red in the low byte. Index 0 is the foreground.
KELDB_API std::uint32_t keledGetRGB(int index);

/// A localised reserved word: 0 by layer, 1 by block, 7 default, 10 model space. A static text; null for other numbers.
/// @param localised false asks for the word as files keep it
KELDB_API const wchar_t* keldbGetReservedString(int which, bool localised);
/// Formats a real. `unit` and `precision` -1 leave them to the drawing. `text` holds at least 256 characters.
KELDB_API void keldbRToS(double value, int unit, int precision, wchar_t* text);
/// Formats an angle given in radians; the rest as keldbRToS.
KELDB_API void keldbAngToS(double value, int unit, int precision, wchar_t* text);

/// The host's rules for names.
class KELDB_API KelDbSymbolNameServices {
  public:
    virtual ~KelDbSymbolNameServices();
    /// 0 if the name may be a symbol's.
    virtual Vorn::ErrorStatus validateSymbolName(const wchar_t* name, bool allowVerticalBar) const = 0;
    virtual bool extendedNamesMode(KelDbDatabase* database) const = 0;
    /// Longest name in characters, and in bytes of the old form.
    virtual void maxNameLength(int& length, int& oldLength, bool isNewName, bool extendedNames) const = 0;
    /// 0, eInvalidInput (3) or eNameTooLong (160).
    virtual Vorn::ErrorStatus validateNameCharacters(const wchar_t* name, bool isNewName, bool allowVerticalBar,
                                                     bool extendedNames) const = 0;
    virtual bool isReservedLayerName(const wchar_t* name) const = 0;
};

namespace KelDbSymbolUtilities {
/// The host's name service; never null.
KELDB_API const KelDbSymbolNameServices* servicesPtr106();
} // namespace KelDbSymbolUtilities
