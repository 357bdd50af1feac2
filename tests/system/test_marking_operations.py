"""ORX_ALGService through the object manager: answers, registry and diagnostics log."""
import pytest

from cim import CIMError

CLASS = "ORX_ALGService"
KEYS = {"SystemCreationClassName": "SCCN", "SystemName": "SN", "CreationClassName": "CCN", "Name": "Name"}
MARKINGS = ("QoSMarkVOIPSignaling", "TOSByteSignaling", "QoSMarkVoiceMedia", "TOSByteMedia", "QoSMarkVideoMedia",
            "TOSByteVideoMedia", "QoSFaxMedia", "TOSByteFax")
MENU_KEYS = ("voipsigmenu", "voicemediamenu", "videomediamenu", "faxmediamenu")


def failure(operation, *arguments):
    with pytest.raises(CIMError) as caught:
        operation(*arguments)
    return caught.value.code, caught.value.description


def change(managed, **values):
    managed.modify(CLASS, KEYS, {name: ("uint16", str(value)) for name, value in values.items()})


def markings(managed):
    values = managed.get(CLASS, KEYS).values
    return [values[name] for name in MARKINGS]


def stored(managed):
    """The registry calls that changed something since the last look, without area and section."""
    prefix = 'KvuSetRegEntryUint16Ex(5, "HTS\\DSCPMarking", '
    return [line[len(prefix):] for line in managed.events() if line.startswith(prefix)]


@pytest.mark.both_variants
def test_names_enumerates_and_reads_the_one_object(managed):
    assert managed.names(CLASS) == [(CLASS, KEYS)]
    [(name, enumerated)] = managed.instances(CLASS)
    assert name == managed.enumerated_name(CLASS, KEYS)
    read = managed.get(CLASS, KEYS)
    assert read.values == enumerated.values
    assert list(read.values) == [*KEYS, "ElementName", "KLonKLEnabled", *MARKINGS[:6], "videoMediaVisible", *MARKINGS[6:]]
    assert read.values["KLonKLEnabled"] == "false" and read.values["videoMediaVisible"] == "1"


@pytest.mark.both_variants
def test_a_marking_is_stored_and_noted(managed):
    managed.get(CLASS, KEYS)
    managed.events()
    change(managed, QoSMarkVoiceMedia=184)
    assert stored(managed) == ['"voicemediamenu", 184) = 0', '"voicemediatosbyte", 184) = 0']
    assert markings(managed) == ["0", "0", "184", "184", "0", "0", "0", "0"]
    assert "Wrote new QoSMarkVoiceMedia: 184 and TOSByteMedia: 184 into the PDR" in managed.sh(
        "cat $KV_STATE_DIR/ORX_DSCP.log")


def test_a_custom_byte_counts_only_with_the_custom_menu_value(managed):
    change(managed, QoSMarkVOIPSignaling=258, TOSByteSignaling=46)
    assert markings(managed)[:2] == ["258", "46"]
    change(managed, QoSMarkVOIPSignaling=184, TOSByteSignaling=46)
    assert markings(managed)[:2] == ["184", "184"]


def test_the_switch_replaces_all_markings(managed):
    managed.modify(CLASS, KEYS, {"QoSFaxMedia": ("uint16", "7"), "KLonKLEnabled": ("boolean", "true")})
    assert markings(managed) == ["164", "164", "188", "188", "140", "140", "188", "188"]
    managed.modify(CLASS, KEYS, {"KLonKLEnabled": ("boolean", "false")})
    assert markings(managed) == ["160", "160", "184", "184", "136", "136", "184", "184"]


def test_an_echo_of_all_properties_changes_nothing(managed):
    change(managed, QoSMarkVOIPSignaling=258, TOSByteSignaling=46)
    before = managed.get(CLASS, KEYS)
    managed.events()
    managed.modify(CLASS, KEYS, before.as_sent())
    assert stored(managed) == []
    assert managed.get(CLASS, KEYS).values == before.values


@pytest.mark.both_variants
def test_markings_survive_a_restart_of_the_object_manager(managed):
    change(managed, QoSMarkVOIPSignaling=258, TOSByteSignaling=46)
    managed.restart_object_manager()
    assert markings(managed)[:2] == ["258", "46"]


def test_lengths_count_characters(managed):
    for name, limit in (("PrimaryOwnerName", 64), ("PrimaryOwnerContact", 256)):
        at_limit = {name: ("string", "\u00e9" * limit)}
        assert failure(managed.modify, CLASS, KEYS, at_limit) == (1, "general error (#101#)")
        beyond = {name: ("string", "\u00e9" * (limit + 1))}
        assert failure(managed.modify, CLASS, KEYS, beyond) == (
            4, f"invalid parameter passed to method (The length of {name} must be <= {limit}\n"
               f"#CFG_000_0004,MOF_Props_ORX_ALGService_{name},{limit}#)")


def test_nothing_of_it_goes_to_the_object_managers_log(managed):
    failure(managed.modify, CLASS, KEYS, {"EnabledDefault": ("uint16", "2")})
    assert "#101#" not in managed.manager_log()


@pytest.mark.both_variants
def test_objects_are_created_and_deleted_in_memory(managed):
    managed.get(CLASS, KEYS)
    managed.events()
    second = {"SystemCreationClassName": "A", "SystemName": "B", "CreationClassName": "C", "Name": "D"}
    created = managed.create(CLASS, {name: ("string", text) for name, text in second.items()})
    assert created == (CLASS, second)
    assert [name for name, _ in managed.instances(CLASS)] == [managed.enumerated_name(CLASS, keys) for keys in (second, KEYS)]
    managed.delete(CLASS, second)
    assert managed.names(CLASS) == [(CLASS, KEYS)]


@pytest.mark.both_variants
def test_a_creation_that_fails_leaves_no_object(managed):
    values = {"Name": ("string", "x"), "EnabledDefault": ("uint16", "2")}
    assert failure(managed.create, CLASS, values) == (1, "general error (#101#)")
    assert managed.names(CLASS) == [(CLASS, KEYS)]


def test_the_deleted_start_up_object_is_gone_but_its_settings_stay(managed):
    change(managed, QoSMarkVoiceMedia=184)
    managed.delete(CLASS, KEYS)
    assert managed.names(CLASS) == [] and managed.instances(CLASS) == []
    assert failure(managed.get, CLASS, KEYS) == (6, "requested object could not be found")
    assert stored(managed)[-1] == '"voicemediatosbyte", 184) = 0'


def test_an_unknown_object_is_not_found(managed):
    assert failure(managed.get, CLASS, {**KEYS, "Name": "other"}) == (6, "requested object could not be found")
    assert failure(managed.get, CLASS, {"Name": "Name"}) == (6, "requested object could not be found")


def test_the_distributions_client_reads_and_changes(managed):
    path = 'pbx/root/cimv2:ORX_ALGService.SystemCreationClassName="SCCN",SystemName="SN",CreationClassName="CCN",Name="Name"'
    managed.wbemcli("mi", path, "QoSFaxMedia=184")
    assert "QoSFaxMedia=184" in managed.wbemcli("gi", path)
