"""Clients of the object manager on the disposable server: the distribution's wbemcli, and hand-made CIM-XML (DMTF DSP0200)."""
import json
import os
import pathlib
import re
import shlex
import xml.etree.ElementTree as ElementTree

from cim_xml import (cim_headers, create_instance, delete_instance, enumerate_instance_names, enumerate_instances, extrinsic_call,
                     get_instance, intrinsic_call, message, modify_instance)
from server import CHECKOUT, RUN, Server

OBJECT_MANAGER = CHECKOUT / "standins/server/object-manager"
WITH_OBJECT_MANAGER = CHECKOUT / "standins/server/with-object-manager"

# The installed OpenWBEM whose object manager runs on the server; None: kv-cimom does.
OPENWBEM = os.environ.get("KV_OPENWBEM_ROOT")

BUILD = pathlib.Path(os.environ.get("KV_BUILD_DIR", CHECKOUT / "build/dev"))
# OpenWBEM, which runs reads side by side, bears only one variant, and a build for it delivers that one.
LIBRARY_DIRS = ({"serialising": BUILD / "src"} if OPENWBEM else
                {"plain": BUILD / "src", "serialising": BUILD / "src/serialising"})
DEFAULT_VARIANT = os.environ.get("KV_LIBRARY_VARIANT") or next(iter(LIBRARY_DIRS))

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
    """A disposable server with the object manager running on it, and in that one variant of the library. The options are
    those of with-object-manager."""

    def __init__(self, *options, variant=DEFAULT_VARIANT):
        environment = os.environ | {"KV_LIBRARY_DIR": str(LIBRARY_DIRS[variant])}
        super().__init__(run=(RUN, WITH_OBJECT_MANAGER, *options), environment=environment)
        self.events_seen = 0

    def restart_object_manager(self):
        self.sh(f"{shlex.quote(str(OBJECT_MANAGER))} stop; {shlex.quote(str(OBJECT_MANAGER))} start")

    def has_library(self):
        """Whether the object manager has the provider's library loaded."""
        return "/libLANProvider.so" in self.sh("cat /proc/$(cat /run/object-manager.pid)/maps")

    @staticmethod
    def enumerated_name(class_name, keys):
        """The name that an enumerated instance with these keys has. OpenWBEM makes it of the properties with a Key qualifier,
        and the provider's have none."""
        return class_name, {} if OPENWBEM else keys

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

    def post(self, call, method):
        request = shlex.quote(json.dumps({"body": message(call), "headers": cim_headers(method)}))
        answer = ElementTree.fromstring(self.sh(f"printf %s {request} | /usr/bin/python3 -c {shlex.quote(POST)}"))
        error = answer.find(".//ERROR")
        if error is not None:
            raise CIMError(error)
        return answer

    def intrinsic(self, method, parameters):
        return self.post(intrinsic_call(method, parameters), method)

    def names(self, class_name):
        """The instance names as (class, keys)."""
        answer = self.intrinsic(*enumerate_instance_names(class_name))
        return [name_of(element) for element in answer.iter("INSTANCENAME")]

    def instances(self, class_name):
        """The enumerated instances as (name, instance)."""
        answer = self.intrinsic(*enumerate_instances(class_name))
        return [(name_of(element.find("INSTANCENAME")), Instance(element.find("INSTANCE")))
                for element in answer.iter("VALUE.NAMEDINSTANCE")]

    def get(self, class_name, keys):
        return Instance(self.intrinsic(*get_instance(class_name, keys)).find(".//INSTANCE"))

    def modify(self, class_name, keys, values, property_list=None):
        """`values` maps a name to (CIM type, text); the text None is null. The keys are sent as properties, too."""
        self.intrinsic(*modify_instance(class_name, keys, values, property_list))

    def create(self, class_name, values):
        return name_of(self.intrinsic(*create_instance(class_name, values)).find(".//INSTANCENAME"))

    def delete(self, class_name, keys):
        self.intrinsic(*delete_instance(class_name, keys))

    def invoke(self, class_name, keys, method):
        return self.post(extrinsic_call(method, class_name, keys), method).findtext(".//RETURNVALUE/VALUE")


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


def name_of(element):
    keys = {binding.get("NAME"): binding.findtext("KEYVALUE") or "" for binding in element.findall("KEYBINDING")}
    return element.get("CLASSNAME"), keys
