#include "lansetting/ResolverFile.hpp"
#include "Targets.hpp"
#include "World.hpp"
#include "lansetting/ORX_LANSetting.hpp"
#include "lansetting/ResolverText.hpp"

#include <string>

namespace
{

using OpenWBEM::String;

const String domain("site.example");
const String address("10.0.0.8");

bool isText(std::string_view input)
{
    return input.find('\0') == std::string_view::npos;
}

ResolverText imageOf(const String& content)
{
    ResolverText image;
    const std::string text = content.c_str();
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t lineBreak = text.find('\n', begin);
        const std::size_t end = lineBreak == std::string::npos ? text.size() : lineBreak + 1;
        if (!image.addLine(String(text.substr(begin, end - begin).c_str()), domain))
            break;
        begin = end;
    }
    return image;
}

void checkImage(const String& content)
{
    const ResolverText image = imageOf(content);
    const ResolverText again = imageOf(image.contents);
    fuzz::expect(again.contents == image.contents, "what is kept is kept when it is read again");
    fuzz::expect(again.primaryDNS == image.primaryDNS && again.secondaryDNS == image.secondaryDNS,
                 "what is kept names the same servers");
    fuzz::expect(!image.primaryDNS.empty() || image.secondaryDNS.empty(),
                 "there is no second without a first");
}

void checkEdits(const String& content)
{
    const String searching = withSearchDomain(content, domain);
    fuzz::expect(searching.indexOf("search " + domain + "\n") != String::npos, "the domain is in the file");
    fuzz::expect(withSearchDomain(searching, domain) == searching,
                 "setting a domain twice is setting it once");

    const String first = withNameserver(content, address, 0);
    fuzz::expect(first.indexOf("nameserver " + address + "\n") != String::npos, "the server is in the file");
    fuzz::expect(withNameserver(first, address, 0) == first, "setting a server twice is setting it once");
    const String second = withNameserver(first, "10.0.0.9", 1);
    fuzz::expect(withNameserver(second, "10.0.0.9", 1) == second,
                 "setting a second server twice is setting it once");
    fuzz::expect(withNameserver(second, "", 0).length() < second.length(), "a server can be removed");
}

/// The same through the files, with whatever bytes and however long the lines.
void readAndChange(std::string_view input)
{
    fakes::World world;
    world.write(resolveFile, std::string(input));
    ORX_LANSetting model;
    model.get();
    model.setDomainName(domain);
    model.setPrimaryDNS(address);
    model.setSecondaryDNS("");
    model.get();
    fuzz::expect(world.problems().empty(), "nothing is left behind");
}

} // namespace

void fuzz::resolver_file(std::string_view input)
{
    readAndChange(input);
    if (!isText(input))
        return;
    const String content(std::string(input).c_str());
    checkImage(content);
    checkEdits(content);
}
