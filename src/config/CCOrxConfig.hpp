#ifndef KV_CONFIG_CCORXCONFIG_HPP
#define KV_CONFIG_CCORXCONFIG_HPP

#include "config/CCOrxConfigObj.hpp"
#include "config/CList.hpp"
#include "system/Stream.hpp"

#include <cstdint>
#include <string>

/// The keyword of a resolver file's name server lines. The first of these lines is kept under the key
/// `faketoken`, which tells it from the others and has it written before them.
inline constexpr char specialtoken[] = "nameserver";
inline constexpr char faketoken[] = "DNS";

/// Reads a small text file of keys and values into memory, lets its user read and change values, and writes
/// the whole file back. It lives for one such cycle. The file is held open only while it is read or written,
/// and nothing locks it: of two stores on one file the later Commit wins.
///
/// Only the first two tokens of a line are used. Comments, empty lines and further tokens are gone after a
/// Commit, which writes the entries in ascending key order.
///
/// No operation reports an error: a file that cannot be read gives an empty store, an absent key an empty or
/// zero value.
class CCOrxConfig
{
  public:
    /// How lines are split and written. Any other style reads like BlankSeparated, without the name server
    /// rule, and writes like EqualsSeparated.
    static constexpr std::int32_t BlankSeparated = 1;  ///< "key   value", "nameserver" lines set apart
    static constexpr std::int32_t EqualsSeparated = 2; ///< "key=value", blanks belonging to either

    /// Reads the file at `path`, of at most 255 characters. When the path is longer or the file cannot be
    /// opened, the store stays empty and Commit writes nothing.
    CCOrxConfig(const char* path, std::int32_t style);
    CCOrxConfig(const CCOrxConfig&) = delete;
    CCOrxConfig& operator=(const CCOrxConfig&) = delete;
    virtual ~CCOrxConfig();

    /// Closes the stream if one is open.
    void Close();

    /// Writes every entry to the file. The former file is kept beside it, under the path with ".0" appended.
    /// When the file could not be read at construction, or cannot be created now, it returns without writing.
    void Commit();

    /// Copies the value of the first entry with `key`, or the empty text, into `out`. There is no limit: the
    /// caller provides a buffer that is large enough.
    void GetStrValue(const char* key, char* out) const;
    /// The value of the first entry with `key`, or the empty text.
    std::string GetStrValue(const char* key) const;
    /// The same as a decimal number: the digits that the value begins with, 0 when there are none.
    std::int32_t GetIntValue(const char* key) const;
    long GetLongValue(const char* key) const;

    /// Changes the first entry with `key`, or adds one.
    void SetValue(const char* key, const char* value);
    /// Changes the first entry with `key`. Unlike a text, a number never adds an entry: only what the
    /// installed file lists can be switched.
    void SetValue(const char* key, int value);
    /// The same. Kept: the stored text is the number and one trailing blank.
    void SetValue(const char* key, long value);

  private:
    using Entries = CList<CCOrxConfigObj, CCOrxConfigObj>;

    void readEntries();
    void writeEntries();

    char m_path[256]; ///< "" until the file has been read
    Stream m_stream;
    Entries m_list;
    std::int32_t m_style;
};

#endif
