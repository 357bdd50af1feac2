#include "replay.h"

#include <dhcp_ip_info.h>
#include <kvu_registry.h>
#include <os_layer.h>

#include <linux/mii.h>
#include <linux/sockios.h>
#include <net/if.h>
#include <netdb.h>
#include <stdio.h>
#include <string.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

static int openFor(const char* ifName, struct ifreq* request)
{
    memset(request, 0, sizeof *request);
    strncpy(request->ifr_name, ifName, IFNAMSIZ - 1);
    return socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
}

static void replayOne(const char* ifName, unsigned long code)
{
    struct ifreq request;
    const int fd = openFor(ifName, &request);
    ioctl(fd, code, &request);
    close(fd);
}

static void replayRegisters(int fd, struct ifreq* request, unsigned long readRegister)
{
    struct mii_ioctl_data mii;
    for (__u16 number = 0; number < 8; ++number) {
        memcpy(&mii, &request->ifr_ifru, sizeof mii);
        mii.reg_num = number;
        memcpy(&request->ifr_ifru, &mii, sizeof mii);
        ioctl(fd, readRegister, request);
    }
}

static void replayFile(const char* path)
{
    char line[1024];
    FILE* file = fopen(path, "re");
    if (file == NULL)
        return;
    while (fgets(line, sizeof line, file) != NULL) {
    }
    fclose(file);
}

void replayMtu(const char* ifName)
{
    replayOne(ifName, SIOCGIFMTU);
}

void replaySpeed(const char* ifName)
{
    struct ifreq request;
    const int fd = openFor(ifName, &request);
    if (ioctl(fd, SIOCGMIIPHY, &request) >= 0)
        replayRegisters(fd, &request, SIOCGMIIREG);
    else if (ioctl(fd, SIOCDEVPRIVATE, &request) >= 0)
        replayRegisters(fd, &request, SIOCDEVPRIVATE + 1);
    close(fd);
}

void replayStatus(const char* ifName)
{
    struct ifreq request;
    const int fd = openFor(ifName, &request);
    ioctl(fd, SIOCGIFFLAGS, &request);
    replaySpeed(ifName);
    close(fd);
}

void replayEndpoint(const char* ifName)
{
    char path[64];
    char key[64];
    char gateway[32] = "";
    uint16_t mtu = 0;
    replayOne(ifName, SIOCGIFHWADDR);
    snprintf(key, sizeof key, "providers\\ORX_LANProvider\\%s", ifName);
    KvuGetRegEntryUint16Ex(5, key, "MTUSize", &mtu);
    snprintf(path, sizeof path, "/etc/sysconfig/network-scripts/ifcfg-%s", ifName);
    replayFile(path);
    if (strcmp(ifName, "eth1") == 0)
        dhcpIpInfoGetDefaultGateway(gateway);
    replayStatus(ifName);
    replayStatus(ifName);
    replaySpeed(ifName);
}

void replaySetting(void)
{
    char host[1024] = "";
    bool isFitted = false;
    gethostname(host, sizeof host);
    gethostbyname(host);
    replayFile("/etc/resolv.conf");
    osIsZODAOnePresent(&isFitted);
    for (int filter = 0; filter < 4; ++filter)
        replayFile("/kv/etc/kv_netfilter.cfg");
}
