#include "AccessWatch.h"

#include <windows.h>

/// A pipe that waits for somebody to connect.
struct AccessWatch::System {
    HANDLE pipe = INVALID_HANDLE_VALUE;
    OVERLAPPED connection{};
};

AccessWatch::AccessWatch() : m_system(std::make_unique<System>()) {
    static int counter = 0;
    m_path = L"\\\\.\\pipe\\zdr-watched-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(counter++);
    m_system->pipe =
        CreateNamedPipeW(m_path.c_str(), PIPE_ACCESS_DUPLEX | FILE_FLAG_OVERLAPPED, 0, 1, 512, 512, 0, nullptr);
    m_system->connection.hEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    ConnectNamedPipe(m_system->pipe, &m_system->connection);
}

AccessWatch::~AccessWatch() {
    CloseHandle(m_system->pipe);
    CloseHandle(m_system->connection.hEvent);
}

bool AccessWatch::isTouched() const {
    return WaitForSingleObject(m_system->connection.hEvent, 0) == WAIT_OBJECT_0;
}
