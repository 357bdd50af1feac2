#include "wire/ServerAddress.hpp"

#include <curl/curl.h>
#include <memory>

namespace lanctl::wire
{

namespace
{

using Url = std::unique_ptr<CURLU, decltype(&curl_url_cleanup)>;

std::string part(const Url& url, CURLUPart which, unsigned flags = 0)
{
    char* text = nullptr;
    if (curl_url_get(url.get(), which, &text, flags) != CURLUE_OK)
        return {};
    std::string result = text;
    curl_free(text);
    return result;
}

std::string withScheme(const std::string& url)
{
    return url.find("://") == std::string::npos ? "http://" + url : url;
}

std::string withoutSlashes(std::string path)
{
    path.erase(0, path.find_first_not_of('/'));
    path.erase(path.find_last_not_of('/') + 1);
    return path;
}

} // namespace

std::string ServerAddress::hostAndPort() const
{
    const bool isIpv6 = host.find(':') != std::string::npos;
    return (isIpv6 ? "[" + host + "]" : host) + ":" + port;
}

std::string ServerAddress::requestUrl() const
{
    return scheme + "://" + hostAndPort() + "/cimom";
}

std::string ServerAddress::url() const
{
    return scheme + "://" + hostAndPort() + "/" + cimNamespace;
}

bool ServerAddress::isLoopback() const
{
    const std::string suffix = ".localhost";
    const bool below =
        host.size() > suffix.size() && host.compare(host.size() - suffix.size(), suffix.size(), suffix) == 0;
    return host == "localhost" || below || host.compare(0, 4, "127.") == 0 || host == "::1";
}

ServerAddress parseServerAddress(const std::string& text)
{
    const Url url(curl_url(), curl_url_cleanup);
    if (curl_url_set(url.get(), CURLUPART_URL, withScheme(text).c_str(), 0) != CURLUE_OK)
        throw BadServerAddress("not a server address: " + text + " (expected http://HOST:PORT/NAMESPACE)");
    if (!part(url, CURLUPART_USER).empty() || !part(url, CURLUPART_PASSWORD).empty())
        throw BadServerAddress("a server address has no user or password; see --user and --password-file");
    ServerAddress address;
    address.scheme = part(url, CURLUPART_SCHEME);
    if (address.scheme != "http" && address.scheme != "https")
        throw BadServerAddress("a server is reached by http or https, not by " + address.scheme);
    address.host = part(url, CURLUPART_HOST);
    if (!address.host.empty() && address.host.front() == '[')
        address.host = address.host.substr(1, address.host.size() - 2);
    address.port = part(url, CURLUPART_PORT);
    if (address.port.empty())
        address.port = address.scheme == "https" ? "5989" : "5988";
    address.cimNamespace = withoutSlashes(part(url, CURLUPART_PATH, CURLU_URLDECODE));
    if (address.cimNamespace.empty())
        address.cimNamespace = "root/cimv2";
    return address;
}

} // namespace lanctl::wire
