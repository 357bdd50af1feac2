"""A server that answers lanctl as a test tells it to: well, badly, or not at all."""
import re
import socket
import threading
import time
import xml.etree.ElementTree as ElementTree
from typing import NamedTuple
from xml.sax.saxutils import escape, quoteattr

ENDPOINT, SETTING, MARKING = "ORX_LANEndpoint", "ORX_LANServiceSetting", "ORX_ALGService"

WARNINGS = {"IPAddress": "Changing IP address will restart Voice Messaging.",
            "SubnetMask": "Changing subnet mask will restart Voice Messaging.",
            "isDhcpEnabled": "Changing DHCP will restart Voice Messaging."}


class Request(NamedTuple):
    method: str
    class_name: str
    headers: dict
    body: str

    @property
    def id(self):
        return re.search(r'<MESSAGE ID="([^"]*)"', self.body).group(1)


def endpoint(number, description, address):
    return {"SystemCreationClassName": ("string", ENDPOINT), "SystemName": ("string", "ORX_K30v"),
            "CreationClassName": ("string", ENDPOINT), "Name": ("string", f"eth{number}"),
            "MACAddress": ("string", f"02:00:00:00:00:0{number}"), "MaxDataSize": ("sint32", "1500"),
            "IPAddress": ("string", address), "SubnetMask": ("string", "255.255.255.0"),
            "DefaultGateway": ("string", "10.0.0.1" if number == 1 else ""), "isDhcpEnabled": ("boolean", "false"),
            "Description": ("string", description), "OperationalStatus": ("uint16", "1"), "EnabledState": ("uint16", "1"),
            "TimeOfLastStateChange": ("datetime", "00000000000000.000000+000"), "ProtocolIFType": ("uint16", "6"),
            "Speed": ("uint64", "100000000")}


def initial_state():
    return {
        ENDPOINT: [endpoint(0, "Internal LAN", "192.168.10.1"), endpoint(1, "Customer LAN", "10.0.0.5"),
                   endpoint(2, "OAM LAN", "172.16.2.1")],
        SETTING: [{"InstanceID": ("string", "Kalvor:ORX_LANServiceSetting"), "DomainName": ("string", "site.example"),
                   "PrimaryDNS": ("string", "10.0.0.2"), "SecondaryDNS": ("string", "10.0.0.3"),
                   "isIcmpFilterEnabled": ("boolean", "false"), "isArpFilterEnabled": ("boolean", "false"),
                   "isBroadcastFilterEnabled": ("boolean", "false"), "isIPAddressConflictEnabled": ("boolean", "false"),
                   "isRouterPresent": ("boolean", "false")}],
        MARKING: [{"SystemCreationClassName": ("string", "SCCN"), "SystemName": ("string", "SN"),
                   "CreationClassName": ("string", "CCN"), "Name": ("string", "Name"), "ElementName": ("string", ""),
                   "KLonKLEnabled": ("boolean", "false"),
                   **{name: ("uint16", value) for name, value in (
                       ("QoSMarkVOIPSignaling", "160"), ("TOSByteSignaling", "160"), ("QoSMarkVoiceMedia", "184"),
                       ("TOSByteMedia", "184"), ("QoSMarkVideoMedia", "136"), ("TOSByteVideoMedia", "136"),
                       ("QoSFaxMedia", "184"), ("TOSByteFax", "184"), ("videoMediaVisible", "1"))}}],
    }


def instance_xml(class_name, properties):
    """As OpenWBEM enumerates it: the name without keys."""
    def one(name, cim_type, value):
        warning = (f'<QUALIFIER NAME="ImpactWarning" TYPE="string" ><VALUE>{WARNINGS[name]}</VALUE></QUALIFIER>'
                   if name in WARNINGS else "")
        return f'<PROPERTY NAME="{name}" TYPE="{cim_type}" >{warning}<VALUE>{escape(value)}</VALUE></PROPERTY>'
    content = "".join(one(name, *typed) for name, typed in properties.items())
    return (f'<VALUE.NAMEDINSTANCE><INSTANCENAME CLASSNAME="{class_name}"></INSTANCENAME>'
            f'<INSTANCE CLASSNAME="{class_name}">{content}</INSTANCE></VALUE.NAMEDINSTANCE>')


def answer_xml(request, content, message_id=None):
    element = "IMETHODRESPONSE" if "<IMETHODCALL" in request.body else "METHODRESPONSE"
    return (f'<?xml version="1.0" ?><CIM CIMVERSION="2.0" DTDVERSION="2.0"><MESSAGE ID="{message_id or request.id}" '
            f'PROTOCOLVERSION="1.0"><SIMPLERSP><{element} NAME="{request.method}">{content}</{element}>'
            f'</SIMPLERSP></MESSAGE></CIM>\r\n')


def error_xml(request, code, description):
    return answer_xml(request, f'<ERROR CODE="{code}" DESCRIPTION={quoteattr(description)}></ERROR>')


def http(body, status="200 Ok", headers=""):
    if isinstance(body, str):
        body = body.encode()
    return (f'HTTP/1.1 {status}\r\nContent-Type: application/xml; charset="utf-8"\r\n{headers}'
            f"Content-Length: {len(body)}\r\n\r\n").encode() + body


class ScriptedServer:
    """Answers as the LAN provider under OpenWBEM would. `script(server, request, connection)` comes first: it returns the bytes to
    send, None for the honest answer, or raises ConnectionError to close the connection without one."""

    def __init__(self, script=None, address="127.0.0.1", context=None, banner=None):
        self.state = initial_state()
        self.script = script
        self.context = context
        self.banner = banner
        self.requests = []
        self.connections = 0
        self.listener = socket.create_server((address, 0))
        self.port = self.listener.getsockname()[1]
        self.url = f"{'https' if context else 'http'}://{address}:{self.port}/root/cimv2"
        threading.Thread(target=self._accept, daemon=True).start()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        # A blocked accept is woken by the shutdown alone.
        try:
            self.listener.shutdown(socket.SHUT_RDWR)
        except OSError:
            pass
        self.listener.close()

    def methods(self):
        return [request.method for request in self.requests]

    def modifications(self):
        return [request for request in self.requests if request.method == "ModifyInstance"]

    def _accept(self):
        while True:
            try:
                connection, _ = self.listener.accept()
            except OSError:
                return
            self.connections += 1
            threading.Thread(target=self._serve, args=(connection,), daemon=True).start()

    def _serve(self, connection):
        try:
            with (self.context.wrap_socket(connection, server_side=True) if self.context else connection) as open_connection:
                if self.banner:
                    open_connection.sendall(self.banner)
                with open_connection.makefile("rb") as stream:
                    while request := self._read(stream):
                        self.requests.append(request)
                        open_connection.sendall(self._reply(request, open_connection))
        except OSError:  # ConnectionError and TLS errors among it
            connection.close()

    @staticmethod
    def _read(stream):
        if not stream.readline().startswith(b"POST "):
            return None
        headers = {}
        while line := stream.readline().decode('latin-1').strip():
            name, _, value = line.partition(":")
            headers[name.lower()] = value.strip()
        body = stream.read(int(headers.get("content-length", 0))).decode()
        class_name = re.search(r'CLASSNAME="(\w+)"|<CLASSNAME NAME="(\w+)"', body)
        return Request(headers.get("cimmethod", ""), next(filter(None, class_name.groups()), "") if class_name else "",
                       headers, body)

    def _reply(self, request, connection):
        scripted = self.script(self, request, connection) if self.script else None
        return scripted if scripted is not None else http(self.honest_answer(request))

    def honest_answer(self, request):
        if request.method == "EnumerateInstances":
            instances = "".join(instance_xml(request.class_name, one) for one in self.state[request.class_name])
            return answer_xml(request, f"<IRETURNVALUE>{instances}</IRETURNVALUE>")
        if request.method == "ModifyInstance":
            self.change(request)
            return answer_xml(request, "")
        return answer_xml(request, '<RETURNVALUE PARAMTYPE="string"><VALUE>Router reset initiated</VALUE></RETURNVALUE>')

    def change(self, request):
        """Finds the object by the properties that were sent, as the provider does."""
        sent = {one.get("NAME"): one.findtext("VALUE") or "" for one in ElementTree.fromstring(request.body).iter("PROPERTY")}
        for one in self.state[request.class_name]:
            if all(one[key][1] == sent.get(key) for key in ("Name",) if key in one):
                for name, value in sent.items():
                    one[name] = (one[name][0], value)


def one_by_one(data, connection, seconds):
    """Sends a byte at a time."""
    for byte in data:
        connection.sendall(bytes([byte]))
        time.sleep(seconds)
