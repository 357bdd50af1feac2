"""The classes as the object manager has read them from mof/, beside what the provider emits."""
import pytest

from cim_xml import class_named, parameter

# Properties that a client may change; all others carry no Write qualifier.
WRITABLE = {
    "ORX_LANEndpoint": {"MaxDataSize", "IPAddress", "SubnetMask", "DefaultGateway", "isDhcpEnabled"},
    "ORX_LANServiceSetting": {"DomainName", "PrimaryDNS", "SecondaryDNS", "isIcmpFilterEnabled", "isArpFilterEnabled",
                              "isBroadcastFilterEnabled", "isIPAddressConflictEnabled"},
    "ORX_ALGService": {"KLonKLEnabled", "QoSMarkVOIPSignaling", "TOSByteSignaling", "QoSMarkVoiceMedia", "TOSByteMedia",
                       "QoSMarkVideoMedia", "TOSByteVideoMedia", "QoSFaxMedia", "TOSByteFax", "PrimaryOwnerName",
                       "PrimaryOwnerContact", "EnabledDefault"},
}
KEYS = {
    "ORX_LANEndpoint": {"SystemCreationClassName", "SystemName", "CreationClassName", "Name"},
    "ORX_LANServiceSetting": {"InstanceID"},
    "ORX_ALGService": {"SystemCreationClassName", "SystemName", "CreationClassName", "Name"},
}
# Return type and parameters of each method.
METHODS = {
    "ORX_LANEndpoint": {},
    "ORX_LANServiceSetting": {"ResetRouter": ("string", [])},
    "ORX_ALGService": {},
}


def definition_of(managed, class_name):
    answer = managed.intrinsic("GetClass", parameter("ClassName", class_named(class_name))
                               + parameter("LocalOnly", "<VALUE>false</VALUE>")
                               + parameter("IncludeQualifiers", "<VALUE>true</VALUE>"))
    definition = answer.find(".//CLASS")
    assert definition.get("SUPERCLASS") is None
    assert {q.get("NAME"): q.findtext("VALUE") for q in definition.findall("QUALIFIER")}["Provider"] == "c++::LANProvider"
    return definition


def properties_of(definition):
    return [element for element in definition if element.tag in ("PROPERTY", "PROPERTY.ARRAY")]


def methods_of(definition):
    return {method.get("NAME"): (method.get("TYPE"), [p.get("NAME") for p in method if p.tag.startswith("PARAMETER")])
            for method in definition.findall("METHOD")}


def is_described(element):
    return any(q.get("NAME") == "Description" for q in element.findall("QUALIFIER"))


def with_qualifier(properties, name):
    return {p.get("NAME") for p in properties
            if any(q.get("NAME").lower() == name and q.findtext("VALUE").lower() == "true" for q in p.findall("QUALIFIER"))}


@pytest.mark.parametrize("class_name", WRITABLE)
def test_a_class_fits_its_provider(managed, class_name):
    definition = definition_of(managed, class_name)
    properties = properties_of(definition)
    # A default would be appended to every partial modification and change what nobody sent.
    assert [p.get("NAME") for p in properties if p.find("VALUE") is not None or p.find("VALUE.ARRAY") is not None] == []
    assert with_qualifier(properties, "key") == KEYS[class_name]
    assert with_qualifier(properties, "write") == WRITABLE[class_name]
    assert methods_of(definition) == METHODS[class_name]
    assert all(map(is_described, properties + definition.findall("METHOD")))
    declared = {p.get("NAME"): p.get("TYPE") for p in properties}
    emitted = managed.instances(class_name)[0][1].types
    assert {name: declared[name] for name in emitted} == emitted
