// The host's runtime as a plug-in module sees it: the system registry with its dictionaries, services, the dynamic
// linker, the command stack.
#pragma once

#include "KelRtObject.h"
#include "VornStatus.h"

/// Messages of kelrtEntryPoint.
inline constexpr unsigned int kelrtLoadMessage = 1;
inline constexpr unsigned int kelrtUnloadMessage = 2;
/// Answers of kelrtEntryPoint. With any but the first the module isn't loaded, and has left nothing in the host.
inline constexpr int kelrtAnswerOk = 0;
inline constexpr int kelrtAnswerNoResources = 3; ///< its resource module can't be loaded
inline constexpr int kelrtAnswerFailed = 4;      ///< it failed in another way, mostly for lack of memory
/// Version of this interface, the major number in the high half: what kelrtGetApiVersion of a module answers.
inline constexpr unsigned int kelrtApiVersion = 0x00110000;

/// A dictionary from names to objects. Names are compared with case significant.
class KELDB_API KelRtDictionary : public KelRtObject {
    KELRT_DECLARE_CLASS
  public:
    KelRtDictionary();
    ~KelRtDictionary() override; ///< Deletes the objects that are still in it and that it owns.
    KelRtDictionary(const KelRtDictionary&) = delete;
    KelRtDictionary& operator=(const KelRtDictionary&) = delete;

    /// The object of that name, which stays the dictionary's, or null.
    KelRtObject* at(const wchar_t* name) const;
    /// Enters an object and takes it over. One of that name that stood there is deleted. Without memory for the entry
    /// the dictionary stays as it was, and the object is deleted, unless it is a class.
    void atPut(const wchar_t* name, KelRtObject* object);
    /// Takes the entry out and hands its object to the caller, who deletes it; null when there is none.
    KelRtObject* remove(const wchar_t* name);

  private:
    struct Entries;
    Entries* m_entries;
    friend struct KelRtDictionaryAccess;
};

/// The dictionary under which the host keeps its own dictionaries and services, by the names below.
KELDB_API KelRtDictionary* kelrtSystemRegistry();
inline constexpr const wchar_t* kelrtClassDictionaryKey = L"ClassDictionary";
inline constexpr const wchar_t* kelrtServiceDictionaryKey = L"ServiceDictionary";
inline constexpr const wchar_t* kelrtDynamicLinkerKey = L"DynamicLinker";
inline constexpr const wchar_t* kelrtCommandStackKey = L"VORN_REGISTERED_COMMANDS";

/// Loads and unloads modules.
class KELDB_API KelRtDynamicLinker : public KelRtObject {
    KELRT_DECLARE_CLASS
  public:
    /// Lets the module of that packet be unloaded again on request; without this call, and when memory runs out, it
    /// stays until the end.
    void acceptApplication(void* packet);
};

/// Declares that the module of that packet works with several open documents.
KELDB_API bool kelrtRegisterAppMDIAware(void* packet);

KELDB_API bool kelrtServiceIsRegistered(const wchar_t* name);
/// Enters a service into the service dictionary. The object stays the dictionary's. Null when it can't be entered.
KELDB_API KelRtObject* kelrtRegisterService(const wchar_t* name);

/// Body of a command.
using KelEdCommandFunction = void (*)();

/// One registered command, as the stack keeps it.
class KELDB_API KelEdCommand : public KelRtObject {
    KELRT_DECLARE_CLASS
  public:
    virtual const wchar_t* groupName() const = 0;
    virtual const wchar_t* globalName() const = 0;
    virtual const wchar_t* localName() const = 0;
    virtual int commandFlags() const = 0;
    virtual KelEdCommandFunction function() const = 0;
};

/// The commands that the command line knows, in groups that a module adds and removes as a whole.
class KELDB_API KelEdCommandStack : public KelRtObject {
    KELRT_DECLARE_CLASS
  public:
    KelEdCommandStack();
    ~KelEdCommandStack() override;
    KelEdCommandStack(const KelEdCommandStack&) = delete;
    KelEdCommandStack& operator=(const KelEdCommandStack&) = delete;

    /// Adds one command on top of the stack; the newest of a name wins.
    /// @param uiContext user-interface context object, or null
    /// @param functionCode number for the host's use, -1 for none
    /// @param resourceHandle module that holds the command's resources, or null
    /// @param added receives the command, which stays the stack's; may be null
    Vorn::ErrorStatus addCommand(const wchar_t* group, const wchar_t* globalName, const wchar_t* localName, int flags,
                                 KelEdCommandFunction function, void* uiContext = nullptr, int functionCode = -1,
                                 void* resourceHandle = nullptr, KelEdCommand** added = nullptr);
    /// Removes all commands of the group. eKeyNotFound when there is none.
    Vorn::ErrorStatus removeGroup(const wchar_t* group);
    /// The newest command whose global or local name that is, without regard to case; null when there is none.
    KelEdCommand* lookup(const wchar_t* name) const;
    /// How many commands stand on the stack, and the one at an index, oldest first.
    int count() const;
    KelEdCommand* at(int index) const;

  private:
    struct Commands;
    Commands* m_commands;
};

/// Reports a broken invariant and ends the process. The format follows the Microsoft runtime's meaning; without memory
/// for the text, the format itself is reported.
[[noreturn]] KELDB_API void kelrt_abort(const wchar_t* format, ...);
