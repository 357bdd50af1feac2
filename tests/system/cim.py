"""Clients of the object manager on the disposable server: the distribution's wbemcli, and hand-made CIM-XML (DMTF DSP0200)."""
import json
import re
import shlex
import xml.etree.ElementTree as ElementTree
from xml.sax.saxutils import escape, quoteattr

from server import CHECKOUT, RUN, Server

NAMESPACE = '<LOCALNAMESPACEPATH><NAMESPACE NAME="root"/><NAMESPACE NAME="cimv2"/></LOCALNAMESPACEPATH>'

# Posts the body that comes on standard input; prints the answer's body.
POST = """
import http.client, json, sys
call = json.load(sys.stdin)
connection = http.client.HTTPConnection("127.0.0.1", 5988, timeout=30)
connection.request("POST", "/cimom", call["body"].encode(), call["headers"])
sys.stdout.write(connection.getresponse().read().decode())
"""


class CIMError(Exception):
    """An error that the object manager answered; the description is OpenWBEM's, with the text in brackets."""

    def __init__(self, error):
        super().__init__(f"{error.get('CODE')}: {error.get('DESCRIPTION')}")
        self.code = int(error.get("CODE"))
        self.description = error.get("DESCRIPTION")


class ManagedServer(Server):
    """A disposable server with the object manager running on it."""

    def __init__(self):
        super().__init__(run=(RUN, CHECKOUT / "standins/server/with-object-manager"))
        self.events_seen = 0

    def wbemcli(self, *arguments):
        """What wbemcli prints, errors included; wbemcli's own exit status says nothing."""
        result = self.run(shlex.join(["wbemcli", *arguments]))
        return result.out + result.err

    def events(self):
        """What the platform was told since the last call, one line each."""
        lines = self.sh("cat $KV_STATE_DIR/events.log 2>/dev/null || true").splitlines()
        new, self.events_seen = lines[self.events_seen:], len(lines)
        return new

    def commands(self):
        """The command lines that were run since the last look at the events."""
        matches = (re.fullmatch(r'runcommand\("(.*)"\) = (-?\d+)', line) for line in self.events())
        return [match.group(1) for match in matches if match]

    def manager_log(self):
        return self.sh("cat $KV_STATE_DIR/object-manager.log")

    def post(self, call, operation, method):
        body = ('<?xml version="1.0" encoding="utf-8"?><CIM CIMVERSION="2.0" DTDVERSION="2.0">'
                f'<MESSAGE ID="1" PROTOCOLVERSION="1.0"><SIMPLEREQ>{call}</SIMPLEREQ></MESSAGE></CIM>')
        headers = {"Content-Type": 'application/xml; charset="utf-8"', "CIMOperation": operation, "CIMMethod": method,
                   "CIMObject": "root%2Fcimv2"}
        request = shlex.quote(json.dumps({"body": body, "headers": headers}))
        answer = ElementTree.fromstring(self.sh(f"printf %s {request} | /usr/bin/python3 -c {shlex.quote(POST)}"))
        error = answer.find(".//ERROR")
        if error is not None:
            raise CIMError(error)
        return answer

    def intrinsic(self, method, parameters):
        return self.post(f'<IMETHODCALL NAME="{method}">{NAMESPACE}{parameters}</IMETHODCALL>', "MethodCall", method)

    def names(self, class_name):
        """The instance names as (class, keys)."""
        answer = self.intrinsic("EnumerateInstanceNames", parameter("ClassName", class_named(class_name)))
        return [name_of(element) for element in answer.iter("INSTANCENAME")]

    def instances(self, class_name):
        """The enumerated instances as (name, instance)."""
        answer = self.intrinsic("EnumerateInstances", parameter("ClassName", class_named(class_name)))
        return [(name_of(element.find("INSTANCENAME")), Instance(element.find("INSTANCE")))
                for element in answer.iter("VALUE.NAMEDINSTANCE")]

    def get(self, class_name, keys):
        answer = self.intrinsic("GetInstance", parameter("InstanceName", instance_named(class_name, keys)))
        return Instance(answer.find(".//INSTANCE"))

    def modify(self, class_name, keys, values, property_list=None):
        """`values` maps a name to (CIM type, text); the text None is null. The keys are sent as properties, too."""
        every = {**{name: ("string", text) for name, text in keys.items()}, **values}
        instance = f"<INSTANCE CLASSNAME={quoteattr(class_name)}>{''.join(map(property_xml, every.items()))}</INSTANCE>"
        named = f"<VALUE.NAMEDINSTANCE>{instance_named(class_name, keys)}{instance}</VALUE.NAMEDINSTANCE>"
        parameters = parameter("ModifiedInstance", named)
        if property_list is not None:
            values_xml = "".join(f"<VALUE>{name}</VALUE>" for name in property_list)
            parameters += parameter("PropertyList", f"<VALUE.ARRAY>{values_xml}</VALUE.ARRAY>")
        self.intrinsic("ModifyInstance", parameters)

    def create(self, class_name, values):
        instance = f"<INSTANCE CLASSNAME={quoteattr(class_name)}>{''.join(map(property_xml, values.items()))}</INSTANCE>"
        return name_of(self.intrinsic("CreateInstance", parameter("NewInstance", instance)).find(".//INSTANCENAME"))

    def delete(self, class_name, keys):
        self.intrinsic("DeleteInstance", parameter("InstanceName", instance_named(class_name, keys)))

    def invoke(self, class_name, keys, method):
        path = f"<LOCALINSTANCEPATH>{NAMESPACE}{instance_named(class_name, keys)}</LOCALINSTANCEPATH>"
        answer = self.post(f'<METHODCALL NAME="{method}">{path}</METHODCALL>', "MethodCall", method)
        return answer.findtext(".//RETURNVALUE/VALUE")


class Instance:
    """An instance as it was answered: `values` in the answer's order, None for null."""

    def __init__(self, element):
        self.class_name = element.get("CLASSNAME")
        self.values = {}
        self.types = {}
        self.qualifiers = {}
        for child in element:
            if child.tag not in ("PROPERTY", "PROPERTY.ARRAY"):
                continue
            name = child.get("NAME")
            value = child.find("VALUE")
            self.values[name] = None if value is None else value.text or ""
            self.types[name] = child.get("TYPE")
            self.qualifiers[name] = [(q.get("NAME"), q.findtext("VALUE")) for q in child.findall("QUALIFIER")]

    def as_sent(self):
        """What a client sends that echoes all properties."""
        return {name: (self.types[name], value) for name, value in self.values.items()}


def parameter(name, content):
    return f'<IPARAMVALUE NAME="{name}">{content}</IPARAMVALUE>'


def class_named(name):
    return f"<CLASSNAME NAME={quoteattr(name)}/>"


def instance_named(class_name, keys):
    bindings = "".join(f'<KEYBINDING NAME={quoteattr(name)}><KEYVALUE VALUETYPE="string">{escape(text)}</KEYVALUE></KEYBINDING>'
                       for name, text in keys.items())
    return f"<INSTANCENAME CLASSNAME={quoteattr(class_name)}>{bindings}</INSTANCENAME>"


def property_xml(item):
    name, (cim_type, text) = item
    value = "" if text is None else f"<VALUE>{escape(text)}</VALUE>"
    return f'<PROPERTY NAME={quoteattr(name)} TYPE="{cim_type}">{value}</PROPERTY>'


def name_of(element):
    keys = {binding.get("NAME"): binding.findtext("KEYVALUE") or "" for binding in element.findall("KEYBINDING")}
    return element.get("CLASSNAME"), keys
