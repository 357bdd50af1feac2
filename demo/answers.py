"""Reads what wbemcli prints."""
import re


def properties(answer):
    """The properties of one instance as printed with -nl: one line "-Name=value" each, texts in double quotes."""
    found = re.findall(r"^-(\w+)=(.*)$", answer, re.MULTILINE)
    return {name: value.strip('"') for name, value in found}


def key_values(answer, key):
    """The value of one key in each of the instance names."""
    return re.findall(rf'\b{key}="([^"]*)"', answer)
