#pragma once

#include <winsock2.h>
#include <windows.h>

#include <atomic>
#include <functional>
#include <list>
#include <string>
#include <string_view>
#include <thread>

namespace tarvik {

// One request and the way back to who made it.
class WebExchange {
  public:
    explicit WebExchange(SOCKET socket) : socket_(socket) {}

    // "GET /name HTTP/1.1" and what follows, up to the empty line; empty if nothing came, and no
    // more than a byte of what is no HTTP.
    const std::string& Head() const { return head_; }
    std::string Path() const;

    // False when the other side has gone, or the server goes.
    bool Send(std::string_view bytes) const;
    // A whole answer.
    void Answer(std::string_view body, std::string_view status = "200 OK") const;
    // Waits until the other side goes, or the server does.
    void StayOpen() const;

  private:
    friend class WebServer;
    void ReadHead();

    SOCKET socket_;
    std::string head_;
};

// A server on the loopback interface that answers each connection's one request as the test says, on a thread
// for each. Its end breaks off what is under way.
class WebServer {
  public:
    using Answer = std::function<void(const WebExchange& exchange)>;

    explicit WebServer(Answer answer);
    ~WebServer();
    WebServer(const WebServer&) = delete;
    WebServer& operator=(const WebServer&) = delete;

    WORD Port() const { return port_; }
    std::wstring Url(std::wstring_view name = L"") const;
    int Connections() const { return connections_; }

  private:
    struct Connection {
        explicit Connection(SOCKET accepted) : socket(accepted) {}
        SOCKET socket;
        std::atomic<bool> isOver = false;
        std::thread thread;
    };

    void Accept();
    void Serve(Connection& connection) const;
    static bool Close(Connection& connection);  // waits for its end; true

    const Answer answer_;
    WORD port_ = 0;
    SOCKET listener_;
    std::atomic<bool> ends_ = false;
    std::atomic<int> connections_ = 0;
    std::list<Connection> open_;  // of the accepting thread
    std::thread accepting_;
};

// A port of the loopback interface that nobody listens at.
WORD ClosedPort();

}  // namespace tarvik
