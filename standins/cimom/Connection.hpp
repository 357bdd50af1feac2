#pragma once

#include <boost/system/error_code.hpp>
#include <chrono>
#include <cstddef>
#include <string_view>

namespace cimom
{

// The socket of one client. A time limit covers all reading and writing until the next limit is set: a client
// gains nothing by sending or reading a byte at a time.
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

    // Ends the server's side and waits for the client to end its own. If the client's data were left unread,
    // closing would take away an answer that the client has not read yet.
    void finish();

    // Another thread calls this: no more is read from the client.
    void stopReading() const;
    void close();

  private:
    bool waitFor(short events);

    int m_socket;
    std::chrono::steady_clock::time_point m_deadline;
};

} // namespace cimom
