#pragma once

#include <boost/system/error_code.hpp>
#include <chrono>
#include <cstddef>
#include <string_view>

namespace cimom
{

// The socket of one client. Reading and writing have a time limit that covers everything up to the next one,
// so that a client gains nothing by sending or reading a byte at a time.
class Connection
{
  public:
    explicit Connection(int socket); // takes it over
    ~Connection() { close(); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void limitTime(std::chrono::seconds limit);

    // Waits for bytes and says how many there are. At the time limit the error is
    // boost::beast::error::timeout, at the end of the stream boost::asio::error::eof.
    std::size_t receive(void* data, std::size_t size, boost::system::error_code& error);

    // False when the client does not take all of it.
    bool write(std::string_view bytes);

    // Ends the server's side and waits for the client to end its own. Data that nobody reads would take an
    // answer away from the client that has not read it yet.
    void finish();

    // From another thread: there is nothing more to read.
    void stopReading() const;
    void close();

  private:
    bool waitFor(short events);

    int m_socket;
    std::chrono::steady_clock::time_point m_deadline;
};

} // namespace cimom
