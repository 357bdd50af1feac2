"""Requests for the library's three classes, as bytes that can be sent often."""
from cim_xml import (cim_headers, enumerate_instance_names, enumerate_instances, get_instance, http_post, intrinsic_call, message,
                     modify_instance)

ENDPOINT, SETTING, MARKING = "ORX_LANEndpoint", "ORX_LANServiceSetting", "ORX_ALGService"
SETTING_KEYS = {"InstanceID": "Kalvor:ORX_LANServiceSetting"}
MARKING_KEYS = {"SystemCreationClassName": "SCCN", "SystemName": "SN", "CreationClassName": "CCN", "Name": "Name"}


def endpoint_keys(name):
    return {"SystemCreationClassName": ENDPOINT, "SystemName": "ORX_K30v", "CreationClassName": ENDPOINT, "Name": name}


def request(operation):
    method, parameters = operation
    return http_post(message(intrinsic_call(method, parameters)).encode(), cim_headers(method))


def get(class_name, keys):
    return request(get_instance(class_name, keys))


def all_instances(class_name):
    return request(enumerate_instances(class_name))


def all_names(class_name):
    return request(enumerate_instance_names(class_name))


def change(class_name, keys, values):
    """`values` maps a name to (CIM type, text)."""
    return request(modify_instance(class_name, keys, values))


def mtu_change(interface, mtu):
    return change(ENDPOINT, endpoint_keys(interface), {"MaxDataSize": ("sint32", str(mtu))})
