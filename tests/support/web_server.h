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

// One HTTP request, and the connection for its response.
class WebExchange {
  public:
    explicit WebExchange(SOCKET socket) : socket_(socket) {}

    // "GET /name HTTP/1.1" and the headers, including the empty line. Empty if nothing was received; one byte
    // if it is not HTTP.
    const std::string& Head() const { return head_; }
    std::string Path() const;

    // False if the client has disconnected, or the server is being destroyed.
    bool Send(std::string_view bytes) const;
    // Sends a complete response.
    void Respond(std::string_view body, std::string_view status = "200 OK") const;
    // Waits until the client disconnects, or the server is destroyed.
    void WaitForDisconnect() const;

  private:
    friend class WebServer;
    void ReadHead();

    SOCKET socket_;
    std::string head_;
};

// An HTTP server on the loopback interface. It calls the test's function for each connection, which carries
// one request, on a thread of its own. The destructor aborts all connections.
class WebServer {
  public:
    using Handler = std::function<void(const WebExchange& exchange)>;

    explicit WebServer(Handler handler);
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
    static bool Close(Connection& connection);  // waits for its thread; true

    const Handler handler_;
    WORD port_ = 0;
    SOCKET listener_;
    std::atomic<bool> ends_ = false;
    std::atomic<int> connections_ = 0;
    std::list<Connection> open_;  // used by the accepting thread
    std::thread accepting_;
};

// A port of the loopback interface on which no program listens.
WORD ClosedPort();

}  // namespace tarvik
