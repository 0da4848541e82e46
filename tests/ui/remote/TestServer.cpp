#include "TestServer.h"

#include <ws2tcpip.h>

#include <algorithm>
#include <array>

namespace {

/// Starts Winsock, which every program has to do before it uses sockets.
void startWinsock() {
    static WSADATA data{};
    [[maybe_unused]] static const int started = WSAStartup(MAKEWORD(2, 2), &data);
}

union SocketAddress {
    sockaddr any;
    sockaddr_in v4;
    sockaddr_in6 v6;
};

SocketAddress loopback(int family, unsigned short port) {
    SocketAddress address{};
    address.any.sa_family = static_cast<ADDRESS_FAMILY>(family);
    if (family == AF_INET) {
        address.v4.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        address.v4.sin_port = htons(port);
    } else {
        address.v6.sin6_addr = in6addr_loopback;
        address.v6.sin6_port = htons(port);
    }
    return address;
}

int sizeOf(int family) {
    return family == AF_INET ? sizeof(sockaddr_in) : sizeof(sockaddr_in6);
}

/// Takes a free port; 0 when that isn't possible.
unsigned short bindToFreePort(SOCKET socket, int family) {
    SocketAddress address = loopback(family, 0);
    int size = sizeOf(family);
    if (bind(socket, &address.any, size) != 0 || getsockname(socket, &address.any, &size) != 0)
        return 0;
    return ntohs(family == AF_INET ? address.v4.sin_port : address.v6.sin6_port);
}

std::string receiveHead(SOCKET client) {
    std::string head;
    std::array<char, 1> byte{};
    while (!head.ends_with("\r\n\r\n") && recv(client, byte.data(), 1, 0) == 1)
        head += byte[0];
    return head;
}

} // namespace

bool TestClient::send(const std::string& bytes) const {
    for (std::size_t sent = 0; sent < bytes.size();) {
        const int count = ::send(m_socket, bytes.data() + sent, static_cast<int>(bytes.size() - sent), 0);
        if (count <= 0)
            return false;
        sent += static_cast<std::size_t>(count);
    }
    return true;
}

void TestClient::finish() const {
    shutdown(m_socket, SD_SEND);
    ignore();
}

void TestClient::ignore() const {
    std::array<char, 4096> bytes{};
    while (recv(m_socket, bytes.data(), static_cast<int>(bytes.size()), 0) > 0) {
    }
}

TestServer::TestServer(Behaviour behaviour, int family) : m_behaviour(std::move(behaviour)), m_family(family) {
    startWinsock();
    m_listener = socket(family, SOCK_STREAM, 0);
    const unsigned short port = bindToFreePort(m_listener, family);
    if (port == 0 || listen(m_listener, SOMAXCONN) != 0)
        return;
    m_port = port;
    m_thread = std::thread([this] { serve(); });
}

TestServer::~TestServer() {
    m_ends = true;
    if (m_thread.joinable()) {
        // Wakes the thread, which waits for a client.
        const SOCKET waker = socket(m_family, SOCK_STREAM, 0);
        const SocketAddress address = loopback(m_family, m_port);
        connect(waker, &address.any, sizeOf(m_family));
        closesocket(waker);
        m_thread.join();
    }
    closesocket(m_listener);
}

std::wstring TestServer::address(const std::wstring& target) const {
    return (m_family == AF_INET ? L"http://127.0.0.1:" : L"http://[::1]:") + std::to_wstring(m_port) + target;
}

std::vector<std::string> TestServer::requests() const {
    const std::lock_guard lock(m_mutex);
    return m_requests;
}

void TestServer::serve() {
    while (!m_ends) {
        const SOCKET client = accept(m_listener, nullptr, nullptr);
        if (client == INVALID_SOCKET)
            return;
        if (!m_ends)
            serveOne(client);
        closesocket(client);
    }
}

void TestServer::serveOne(SOCKET client) {
    const TestClient request(client, receiveHead(client));
    {
        const std::lock_guard lock(m_mutex);
        m_requests.push_back(request.head().substr(0, request.head().find("\r\n")));
    }
    m_behaviour(request);
}

TestServer::Behaviour answers(std::string text) {
    return [text = std::move(text)](const TestClient& client) {
        client.send(text);
        client.finish();
    };
}

ClosedPort::ClosedPort() {
    startWinsock();
    m_socket = socket(AF_INET, SOCK_STREAM, 0);
    m_port = bindToFreePort(m_socket, AF_INET);
}

FullPort::FullPort() {
    constexpr int callers = 8; // more than any system queues for a backlog of 0
    startWinsock();
    m_listener = socket(AF_INET, SOCK_STREAM, 0);
    m_port = bindToFreePort(m_listener, AF_INET);
    listen(m_listener, 0);
    const SocketAddress address = loopback(AF_INET, m_port);
    for (int i = 0; i < callers; ++i) {
        m_callers.push_back(socket(AF_INET, SOCK_STREAM, 0));
        u_long isNonBlocking = 1;
        ioctlsocket(m_callers.back(), FIONBIO, &isNonBlocking);
        connect(m_callers.back(), &address.any, sizeOf(AF_INET));
    }
}

FullPort::~FullPort() {
    for (const SOCKET caller : m_callers)
        closesocket(caller);
    closesocket(m_listener);
}
