#include "tests/support/web_server.h"

#include <cctype>

#include <gtest/gtest.h>

namespace tarvik {

namespace {

class Sockets {
  public:
    static void EnsureStarted() { static const Sockets sockets; }

  private:
    Sockets() { WSAStartup(MAKEWORD(2, 2), &data_); }
    ~Sockets() { WSACleanup(); }
    WSADATA data_;
};

// Bound to a free port.
SOCKET BoundSocket(WORD& port) {
    Sockets::EnsureStarted();
    const SOCKET bound = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int size = sizeof address;
    EXPECT_EQ(bind(bound, reinterpret_cast<sockaddr*>(&address), size), 0);
    EXPECT_EQ(getsockname(bound, reinterpret_cast<sockaddr*>(&address), &size), 0);
    port = ntohs(address.sin_port);
    return bound;
}

bool IsReadable(SOCKET socket, long milliseconds) {
    fd_set set;
    FD_ZERO(&set);
    FD_SET(socket, &set);
    timeval limit = {0, milliseconds * 1000};
    return select(0, &set, nullptr, nullptr, &limit) > 0;
}

}  // namespace

std::string WebExchange::Path() const {
    const size_t begin = head_.find(' ') + 1;
    return head_.substr(begin, head_.find(' ', begin) - begin);
}

bool WebExchange::Send(std::string_view bytes) const {
    while (!bytes.empty()) {
        const int sent = send(socket_, bytes.data(), static_cast<int>(bytes.size()), 0);
        if (sent <= 0) return false;
        bytes.remove_prefix(static_cast<size_t>(sent));
    }
    return true;
}

void WebExchange::Respond(std::string_view body, std::string_view status) const {
    // Without these headers, the system would keep the connection for a minute, and cache the body.
    constexpr char kHeaders[] = "\r\nConnection: close\r\nCache-Control: no-store\r\nContent-Length: ";
    Send("HTTP/1.1 " + std::string(status) + kHeaders + std::to_string(body.size()) + "\r\n\r\n");
    Send(body);
}

void WebExchange::WaitForDisconnect() const {
    char bytes[256];
    while (recv(socket_, bytes, sizeof bytes, 0) > 0) {
    }
}

void WebExchange::ReadHead() {
    const auto isHttp = [this] {
        return head_.empty() || std::isalpha(static_cast<unsigned char>(head_[0]));
    };
    char byte = 0;
    while (isHttp() && !head_.ends_with("\r\n\r\n") && recv(socket_, &byte, 1, 0) == 1)
        head_ += byte;
}

WebServer::WebServer(Handler handler) : handler_(std::move(handler)), listener_(BoundSocket(port_)) {
    EXPECT_EQ(listen(listener_, SOMAXCONN), 0);
    accepting_ = std::thread([this] { Accept(); });
}

WebServer::~WebServer() {
    ends_ = true;
    accepting_.join();
    closesocket(listener_);
    for (const Connection& connection : open_)
        shutdown(connection.socket, SD_BOTH);
    open_.remove_if(Close);
}

std::wstring WebServer::Url(std::wstring_view name) const {
    return L"http://127.0.0.1:" + std::to_wstring(port_) + L"/" + std::wstring(name);
}

void WebServer::Accept() {
    while (!ends_) {
        open_.remove_if([](Connection& connection) { return connection.isOver && Close(connection); });
        if (!IsReadable(listener_, 20)) continue;
        const SOCKET socket = accept(listener_, nullptr, nullptr);
        if (socket == INVALID_SOCKET) continue;
        ++connections_;
        Connection& connection = open_.emplace_back(socket);
        connection.thread = std::thread([this, &connection] { Serve(connection); });
    }
}

void WebServer::Serve(Connection& connection) const {
    WebExchange exchange(connection.socket);
    exchange.ReadHead();
    handler_(exchange);
    shutdown(connection.socket, SD_SEND);
    connection.isOver = true;
}

bool WebServer::Close(Connection& connection) {
    connection.thread.join();
    closesocket(connection.socket);
    return true;
}

WORD ClosedPort() {
    WORD port = 0;
    closesocket(BoundSocket(port));
    return port;
}

}  // namespace tarvik
