// The operations of the runtime around the drawings.

#include "HostMemory.h"

#include "CommandLineOutput.h"
#include "Documents.h"
#include "engine/DatabaseAccess.h"
#include "KelEditor.h"
#include "KelRuntime.h"
#include "SystemRegistry.h"
#include "SystemVariables.h"

namespace {

using Database = KelDbDatabase;

void command() {}

/// An operation that needs nothing made ready but the system registry.
template <class Call> HostOperation plain(const char* name, Call call) {
    return {name, [call](Database&) {
                kelrtSystemRegistry();
                return [call] { return answerOf(call()); };
            }};
}

HostOperation addingCommand() {
    return plain("addCommand", [] {
        KelEdCommandStack& stack = runtime::commandStack();
        KelEdCommand* added = nullptr;
        const Vorn::ErrorStatus status =
            stack.addCommand(kLongName, kLongName, kLongName, 0, command, nullptr, -1, nullptr, &added);
        const bool fits = stack.count() == (status == Vorn::eOk ? 1 : 0) && (added != nullptr) == (stack.count() == 1);
        return fits ? status : Vorn::eInvalidInput;
    });
}

HostOperation withCommand(const char* name, bool (*call)(KelEdCommandStack& stack)) {
    return {name, [call](Database&) {
                runtime::commandStack().addCommand(kLongName, kLongName, kLongName, 0, command);
                return [call] { return answerOf(call(runtime::commandStack())); };
            }};
}

HostOperation registering() {
    return plain("kelrtRegisterService", [] {
        const bool done = kelrtRegisterService(kLongName) != nullptr;
        return kelrtServiceIsRegistered(kLongName) == done && done;
    });
}

HostOperation entering() {
    return plain("atPut", [] {
        KelRtClass* const record = KelRtObject::desc(); // a class isn't owned, so the test needn't make a new one
        kelrtSystemRegistry()->atPut(kLongName, record);
        return kelrtSystemRegistry()->at(kLongName) == record;
    });
}

HostOperation declaring(const char* name, bool isSilent, bool (*call)(void* packet)) {
    HostOperation operation = plain(name, [call] {
        static int packet = 0;
        return call(&packet);
    });
    operation.isSilent = isSilent;
    return operation;
}

/// How many steps can be undone decides whether there is room for one more.
HostOperation transaction(const char* name, int stepsBefore) {
    return {name, [stepsBefore](Database& database) {
                auto manager = std::make_shared<runtime::TransactionManager>(database);
                // Changes outside any transaction, which the start of one has to close as a step of its own. The last
                // of them can be undone while no transaction is open.
                for (int step = 0; step <= stepsBefore; ++step) {
                    static_cast<void>(engine::setCurrentLayer(database, step % 2 == 0 ? 0 : 2));
                    if (step < stepsBefore && manager->startTransaction())
                        static_cast<void>(manager->endTransaction());
                }
                return [manager, &database] {
                    const bool started = manager->startTransaction() != nullptr;
                    const Vorn::ErrorStatus ended = manager->endTransaction();
                    const bool fits = ended == (started ? Vorn::eOk : Vorn::eNotApplicable) && manager->depth() == 0 &&
                                      (started || (engine::undo(database) && engine::redo(database)));
                    return fits ? answerOf(started) : Answer::Other;
                };
            }};
}

HostOperation variable() {
    return {"keledGetVar", [](Database&) {
                runtime::setProfile(kLongName);
                return [] {
                    ResultBuffer result{};
                    const bool done = keledGetVar(L"CPROFILE", &result) == kResultNormal;
                    const bool fits = done ? result.type == kVariableString && result.value.string
                                           : result.type == 0 && !result.value.string;
                    vorn_free(done ? result.value.string : nullptr);
                    return fits ? answerOf(done) : Answer::Other;
                };
            }};
}

HostOperation printing() {
    return {"kelutPrintf", [](Database&) {
                auto printed = std::make_shared<std::size_t>(0);
                runtime::setOutputSink([printed](const std::wstring& text) { *printed = text.size(); });
                return [printed] {
                    *printed = 0;
                    const bool done = kelutPrintf(L"%s\n", kLongName) == kResultNormal;
                    return done == (*printed > 0) ? answerOf(done) : Answer::Other;
                };
            }};
}

} // namespace

std::vector<HostOperation> runtimeOperations() {
    return {
        addingCommand(),
        withCommand("removeGroup", [](KelEdCommandStack& stack) { return stack.removeGroup(kLongName) == Vorn::eOk; }),
        withCommand("lookup", [](KelEdCommandStack& stack) { return stack.lookup(kLongName) != nullptr; }),
        registering(),
        entering(),
        declaring("kelrtRegisterAppMDIAware", false, kelrtRegisterAppMDIAware),
        declaring("acceptApplication", true,
                  [](void* packet) {
                      kelrtCast<KelRtDynamicLinker>(kelrtSystemRegistry()->at(kelrtDynamicLinkerKey))
                          ->acceptApplication(packet);
                      return true;
                  }),
        plain("keldbRegApp", [] { return keldbRegApp(kLongName); }),
        transaction("startTransaction", 0),
        transaction("startTransaction after 1 step", 1),
        transaction("startTransaction after 2 steps", 2),
        transaction("startTransaction after 3 steps", 3),
        transaction("startTransaction after 4 steps", 4),
        transaction("startTransaction after 5 steps", 5),
        variable(),
        printing(),
    };
}
