/* The platform's headers are C headers: this file proves it by being compiled, and fixes the prototypes. */
#include "dhcp_ip_info.h"
#include "ems_client.h"
#include "kv_runcommand.h"
#include "kvu_diag.h"
#include "kvu_registry.h"
#include "os_layer.h"

struct platform {
    unsigned int (*getEntry)(int, const char*, const char*, uint16_t*);
    unsigned int (*setEntry)(int, const char*, const char*, uint16_t);
    unsigned int (*registerModule)(const char*, const char*, int, const char*, unsigned long*);
    unsigned int (*deregisterModule)(unsigned long);
    unsigned int (*addLogEntry)(unsigned long, int, uint16_t, int, const char*);
    int (*getProcessId)(int*);
    int (*isZODAOnePresent)(bool*);
    int (*resetRouter)(void);
    int (*getIPInfo)(const char*, char*, char*, char*);
    int (*getDefaultGateway)(char*);
    int (*isIPAddrValid)(const char*);
    int (*requestSemaphore)(void);
    int (*releaseSemaphore)(void);
    int (*informOfChange)(void);
    int (*openConnection)(int, int (*)(struct sEmsPacket*));
    int (*addressChange)(int, int, unsigned int);
    int (*closeConnection)(void);
    int (*run)(const char*, const char*, char***, char***);
    void (*freeLines)(char**);
};

extern const struct platform platformSeenFromC;

const struct platform platformSeenFromC = {
    KvuGetRegEntryUint16Ex,
    KvuSetRegEntryUint16Ex,
    KvuDiagRegisterModule,
    KvuDiagDeregisterModule,
    KvuDiagAddLogEntry,
    osGetProcessId,
    osIsZODAOnePresent,
    osResetRouter,
    dhcpIpInfoGetIPInfo,
    dhcpIpInfoGetDefaultGateway,
    dhcpIpInfoIsIPAddrValid,
    dhcpIpInfoRequestDHCPLANSemaphore,
    dhcpIpInfoReleaseDHCPLANSemaphore,
    dhcpIpInfoInformDHCPProviderOfIPConfigChange,
    EmsConnectionOpen,
    EmsIpAddressChange,
    EmsConnectionClose,
    runcommand,
    freeresultbuf,
};
