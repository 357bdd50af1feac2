#ifndef OW_STRING_HPP_
#define OW_STRING_HPP_

#include "OW_CIMFwd.hpp"
#include "OW_COWReference.hpp"
#include "OW_CommonFwd.hpp"
#include "OW_Exception.hpp"
#include "OW_Types.hpp"
#include <iosfwd>

namespace OpenWBEM
{

// A text that is no number or no boolean was converted to one. The message is
// Unable to convert "text" into Type.
OW_DECLARE_EXCEPTION(StringConversion)

// Bytes, meant as UTF-8 and ended by NUL. Positions and lengths count bytes. A String without any content is
// in one of two states, null or empty: they compare equal, but only the empty one converts to the number 0
// and can be indexed.
class String
{
  public:
    enum ETakeOwnershipFlag { E_TAKE_OWNERSHIP };
    enum EReturnDelimitersFlag {
        E_DISCARD_TOKENS,
        E_RETURN_TOKENS,
        E_DISCARD_DELIMITERS,
        E_RETURN_DELIMITERS
    };
    enum EEmptyTokenReturnFlag { E_SKIP_EMPTY_TOKENS, E_RETURN_EMPTY_TOKENS };
    enum EIgnoreCaseFlag { E_CASE_SENSITIVE, E_CASE_INSENSITIVE };

    static const size_t npos = ~size_t(0); // has no definition: no reference can be bound to it

    String();
    String(const char* str); // a null pointer gives the null state
    explicit String(Int32 val);
    explicit String(UInt32 val);
    explicit String(Int64 val);
    explicit String(UInt64 val);
#ifdef OW_LONG_IS_A_TYPE_OF_ITS_OWN
    explicit String(long val);
    explicit String(unsigned long val);
#endif
    explicit String(Real64 val); // as an ostream prints it: six significant digits
    explicit String(char c);     // NUL gives the null state
    explicit String(const char* str, size_t len);
    explicit String(ETakeOwnershipFlag, char* allocated, size_t len); // allocated with new[]
    explicit String(Bool val);
    explicit String(const Char16& val);
    explicit String(const Char16Array& val);
    explicit String(const CIMDateTime& val);
    explicit String(const CIMObjectPath& val);

    size_t length() const;
    bool empty() const;
    size_t UTF8Length() const; // counts the bytes that are not 0x80 to 0xBF
    const char* c_str() const; // never 0
    char charAt(size_t pos) const;
    const char& operator[](size_t pos) const; // the null state throws, also for position 0
    char& operator[](size_t pos);

    // Replaces the content as printf would print it; returns the new length.
    int format(const char* fmt, ...) __attribute__((format(printf, 2, 3)));
    StringArray tokenize(const char* delims = " \n\r\t\v", EReturnDelimitersFlag = E_DISCARD_DELIMITERS,
                         EEmptyTokenReturnFlag = E_SKIP_EMPTY_TOKENS) const;

    int compareTo(const String& arg) const;
    int compareTo(const char* arg) const;
    int compareToIgnoreCase(const String& arg) const;
    int compareToIgnoreCase(const char* arg) const;
    bool equals(const String& arg) const;
    bool equals(const char* arg) const;
    bool equalsIgnoreCase(const String& arg) const; // folds UTF-8, not only ASCII
    bool equalsIgnoreCase(const char* arg) const;

    // An empty argument starts and ends only an empty String.
    bool startsWith(const char* arg, EIgnoreCaseFlag = E_CASE_SENSITIVE) const;
    bool startsWith(const String& arg, EIgnoreCaseFlag = E_CASE_SENSITIVE) const;
    bool startsWith(char arg) const;
    bool endsWith(const char* arg, EIgnoreCaseFlag = E_CASE_SENSITIVE) const;
    bool endsWith(const String& arg, EIgnoreCaseFlag = E_CASE_SENSITIVE) const;
    bool endsWith(char arg) const;

    size_t indexOf(char ch, size_t fromIndex = 0) const;
    size_t indexOf(const char* arg, size_t fromIndex = 0) const;
    size_t indexOf(const String& arg, size_t fromIndex = 0) const;
    size_t lastIndexOf(char ch, size_t fromIndex = npos) const;
    size_t lastIndexOf(const char* arg, size_t fromIndex = npos) const;
    size_t lastIndexOf(const String& arg, size_t fromIndex = npos) const;
    String substring(size_t beginIndex, size_t count = npos) const; // clips

    String& concat(const char* arg);
    String& concat(const String& arg);
    String& concat(char arg);
    String& operator+=(const String& arg);
    String& operator+=(const char* arg);
    String& operator+=(char arg);

    String& toLowerCase(); // byte by byte
    String& toUpperCase();
    String& ltrim();
    String& rtrim();
    String& trim();
    String& erase(); // leaves the null state
    String& erase(size_t idx, size_t len = npos);

    bool isSpaces() const;
    UInt32 hashCode() const;
    String toString() const;
    char* allocateCString() const; // with malloc; the caller frees it

    // The whole text must be a number of the type; leading blanks are allowed. Otherwise
    // StringConversionException.
    bool toBool() const; // true or false, in any case
    Real32 toReal32() const;
    Real64 toReal64() const;
    UInt8 toUInt8(int base = 10) const;
    Int8 toInt8(int base = 10) const;
    UInt16 toUInt16(int base = 10) const;
    Int16 toInt16(int base = 10) const;
    UInt32 toUInt32(int base = 10) const;
    Int32 toInt32(int base = 10) const;
    UInt64 toUInt64(int base = 10) const;
    Int64 toInt64(int base = 10) const;
    Char16 toChar16() const; // of exactly one character
    CIMDateTime toDateTime() const;
    unsigned int toUnsignedInt(int base = 10) const;
    int toInt(int base = 10) const;

    void swap(String& other);

    static String getLine(std::istream& is); // without its line end

  private:
    struct Data;
    const Data& read() const; // an empty text in the null state
    Data& write();            // ends the null state

    COWReference<Data> m_data; // null in the null state
};

String operator+(const String& lhs, const String& rhs);
String operator+(const char* lhs, const String& rhs);
String operator+(const String& lhs, const char* rhs);
String operator+(char lhs, const String& rhs);
String operator+(const String& lhs, char rhs);

// Exact, byte by byte. A null pointer must not be compared.
bool operator==(const String& lhs, const String& rhs);
bool operator==(const String& lhs, const char* rhs);
bool operator==(const char* lhs, const String& rhs);
bool operator!=(const String& lhs, const String& rhs);
bool operator!=(const String& lhs, const char* rhs);
bool operator!=(const char* lhs, const String& rhs);
bool operator<(const String& lhs, const String& rhs);
bool operator<(const String& lhs, const char* rhs);
bool operator<(const char* lhs, const String& rhs);
bool operator<=(const String& lhs, const String& rhs);
bool operator<=(const String& lhs, const char* rhs);
bool operator<=(const char* lhs, const String& rhs);
bool operator>(const String& lhs, const String& rhs);
bool operator>(const String& lhs, const char* rhs);
bool operator>(const char* lhs, const String& rhs);
bool operator>=(const String& lhs, const String& rhs);
bool operator>=(const String& lhs, const char* rhs);
bool operator>=(const char* lhs, const String& rhs);

std::ostream& operator<<(std::ostream& ostr, const String& arg);

} // namespace OpenWBEM

#endif
