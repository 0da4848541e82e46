// A server of the tests' own, for what no good server does.
#pragma once

#include <winsock2.h>

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

/// A client that has sent the head of its request.
class TestClient {
  public:
    TestClient(SOCKET socket, std::string head) : m_socket(socket), m_head(std::move(head)) {}

    /// The head of the request, as it came, with the empty line at its end.
    const std::string& head() const { return m_head; }
    /// Sends bytes; false when the client is gone.
    bool send(const std::string& bytes) const;
    /// Tells the client that nothing more will be sent, and takes what the client sends until it goes.
    void finish() const;
    /// Takes what the client sends, and answers nothing, until it goes.
    void ignore() const;

  private:
    SOCKET m_socket;
    std::string m_head;
};

/// Listens on a free port of this computer in a thread of its own, and hands its clients to the test one after another.
class TestServer {
  public:
    using Behaviour = std::function<void(const TestClient&)>;
    explicit TestServer(Behaviour behaviour, int family = AF_INET);
    ~TestServer();
    TestServer(const TestServer&) = delete;
    TestServer& operator=(const TestServer&) = delete;

    /// Whether it listens; false when the computer lacks the family of addresses.
    bool listens() const { return m_port != 0; }
    std::wstring address(const std::wstring& target = L"/plan.las") const;
    /// The first lines of the requests so far.
    std::vector<std::string> requests() const;

  private:
    void serve();
    void serveOne(SOCKET client);

    Behaviour m_behaviour;
    int m_family;
    SOCKET m_listener;
    unsigned short m_port = 0;
    std::atomic<bool> m_ends = false;
    mutable std::mutex m_mutex;
    std::vector<std::string> m_requests;
    std::thread m_thread;
};

/// Sends that text as the whole answer and closes the line in good order.
TestServer::Behaviour answers(std::string text);
/// A port of this computer on which nobody listens, for as long as it lives.
class ClosedPort {
  public:
    ClosedPort();
    ~ClosedPort() { closesocket(m_socket); }
    ClosedPort(const ClosedPort&) = delete;
    ClosedPort& operator=(const ClosedPort&) = delete;
    std::wstring address() const { return L"http://127.0.0.1:" + std::to_wstring(m_port) + L"/plan.las"; }

  private:
    SOCKET m_socket; // has the port and doesn't listen, so that nobody else can
    unsigned short m_port;
};

/// A port of this computer whose queue is full: whoever calls waits for a line that is never taken.
class FullPort {
  public:
    FullPort();
    ~FullPort();
    FullPort(const FullPort&) = delete;
    FullPort& operator=(const FullPort&) = delete;
    std::wstring address() const { return L"http://127.0.0.1:" + std::to_wstring(m_port) + L"/plan.las"; }

  private:
    SOCKET m_listener;
    unsigned short m_port;
    std::vector<SOCKET> m_callers;
};
