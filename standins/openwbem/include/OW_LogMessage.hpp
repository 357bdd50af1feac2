#ifndef OW_LOG_MESSAGE_HPP_
#define OW_LOG_MESSAGE_HPP_

#include "OW_String.hpp"

namespace OpenWBEM
{

// What a logger hands to its output.
struct LogMessage {
    LogMessage(const String& component_, const String& category_, const String& message_,
               const char* filename_, int fileline_, const char* methodname_)
        : component(component_), category(category_), message(message_), filename(filename_),
          fileline(fileline_), methodname(methodname_)
    {
    }

    String component;
    String category;
    String message;
    const char* filename;   // 0 when unknown
    int fileline;           // -1 when unknown
    const char* methodname; // 0 when unknown
};

} // namespace OpenWBEM

#endif
