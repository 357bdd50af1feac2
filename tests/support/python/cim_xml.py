"""Requests to an object manager, made by hand: CIM-XML (DMTF DSP0201) over HTTP (DSP0200).

An intrinsic operation is the pair of its method's name and its parameters.
"""
from xml.sax.saxutils import escape, quoteattr

NAMESPACE = '<LOCALNAMESPACEPATH><NAMESPACE NAME="root"/><NAMESPACE NAME="cimv2"/></LOCALNAMESPACEPATH>'


def message(call, message_id="1"):
    return (f'<?xml version="1.0" encoding="utf-8"?><CIM CIMVERSION="2.0" DTDVERSION="2.0"><MESSAGE ID="{message_id}" '
            f'PROTOCOLVERSION="1.0"><SIMPLEREQ>{call}</SIMPLEREQ></MESSAGE></CIM>')


def intrinsic_call(method, parameters=""):
    return f'<IMETHODCALL NAME="{method}">{NAMESPACE}{parameters}</IMETHODCALL>'


def extrinsic_call(method, class_name, keys):
    path = f"<LOCALINSTANCEPATH>{NAMESPACE}{instance_named(class_name, keys)}</LOCALINSTANCEPATH>"
    return f'<METHODCALL NAME="{method}">{path}</METHODCALL>'


def cim_headers(method):
    return {"Content-Type": 'application/xml; charset="utf-8"', "CIMOperation": "MethodCall", "CIMMethod": method,
            "CIMObject": "root%2Fcimv2"}


def http_post(body, headers):
    """A request, byte for byte."""
    lines = ["POST /cimom HTTP/1.1", "Host: localhost", *(f"{name}: {value}" for name, value in headers.items()),
             f"Content-Length: {len(body)}", "", ""]
    return "\r\n".join(lines).encode() + body


def get_instance(class_name, keys):
    return "GetInstance", parameter("InstanceName", instance_named(class_name, keys))


def enumerate_instances(class_name):
    return "EnumerateInstances", parameter("ClassName", class_named(class_name))


def enumerate_instance_names(class_name):
    return "EnumerateInstanceNames", parameter("ClassName", class_named(class_name))


def modify_instance(class_name, keys, values, property_list=None):
    """`values` maps a name to (CIM type, text); the text None is null. The keys are sent as properties, too."""
    every = {**{name: ("string", text) for name, text in keys.items()}, **values}
    named = f"<VALUE.NAMEDINSTANCE>{instance_named(class_name, keys)}{instance(class_name, every)}</VALUE.NAMEDINSTANCE>"
    parameters = parameter("ModifiedInstance", named)
    if property_list is not None:
        values_xml = "".join(f"<VALUE>{name}</VALUE>" for name in property_list)
        parameters += parameter("PropertyList", f"<VALUE.ARRAY>{values_xml}</VALUE.ARRAY>")
    return "ModifyInstance", parameters


def create_instance(class_name, values):
    return "CreateInstance", parameter("NewInstance", instance(class_name, values))


def delete_instance(class_name, keys):
    return "DeleteInstance", parameter("InstanceName", instance_named(class_name, keys))


def parameter(name, content):
    return f'<IPARAMVALUE NAME="{name}">{content}</IPARAMVALUE>'


def class_named(name):
    return f"<CLASSNAME NAME={quoteattr(name)}/>"


def instance_named(class_name, keys):
    bindings = "".join(f'<KEYBINDING NAME={quoteattr(name)}><KEYVALUE VALUETYPE="string">{escape(text)}</KEYVALUE></KEYBINDING>'
                       for name, text in keys.items())
    return f"<INSTANCENAME CLASSNAME={quoteattr(class_name)}>{bindings}</INSTANCENAME>"


def instance(class_name, values):
    properties = "".join(property_named(name, *value) for name, value in values.items())
    return f"<INSTANCE CLASSNAME={quoteattr(class_name)}>{properties}</INSTANCE>"


def property_named(name, cim_type, text):
    value = "" if text is None else f"<VALUE>{escape(text)}</VALUE>"
    return f'<PROPERTY NAME={quoteattr(name)} TYPE="{cim_type}">{value}</PROPERTY>'
