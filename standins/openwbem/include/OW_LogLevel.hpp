#ifndef OW_LOG_LEVEL_HPP_
#define OW_LOG_LEVEL_HPP_

namespace OpenWBEM
{

// A logger passes the messages whose level is at or below its own.
enum ELogLevel {
    E_NONE_LEVEL = 0,
    E_FATAL_ERROR_LEVEL = 1,
    E_ERROR_LEVEL = 2,
    E_INFO_LEVEL = 3,
    E_DEBUG_LEVEL = 4,
    E_ALL_LEVEL = 5
};

} // namespace OpenWBEM

#endif
