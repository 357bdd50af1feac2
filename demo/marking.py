"""The DSCP marking of voice signalling, voice, video and fax packets."""
from answers import properties
from console import read, STATE

MARKING = ('pbx/root/cimv2:ORX_ALGService.SystemCreationClassName="SCCN",SystemName="SN",'
           'CreationClassName="CCN",Name="Name"')
FLOWS = ("QoSMarkVOIPSignaling", "QoSMarkVoiceMedia", "QoSMarkVideoMedia", "QoSFaxMedia")


def show(console):
    reading(console)
    choosing_a_custom_byte(console)
    switching_the_presets(console)
    reading_the_log(console)


def reading(console):
    console.chapter("DSCP marking")
    console.say("The registry holds no markings yet, so all of them read 0.")
    console.skip_events()
    answer = properties(console.client("-nl", "ei", "pbx/root/cimv2:ORX_ALGService"))
    console.expect("menu values", [answer.get(flow) for flow in FLOWS], ["0", "0", "0", "0"])


def choosing_a_custom_byte(console):
    console.chapter("A custom TOS byte for signalling")
    console.say("Menu value 258 stands for a byte of the client's own choice.")
    console.client("mi", MARKING, "QoSMarkVOIPSignaling=258,TOSByteSignaling=46")
    events = console.events()
    console.expect("menu value and byte in the registry", [line for line in events if "KvuSet" in line], [
        r'KvuSetRegEntryUint16Ex(5, "HTS\DSCPMarking", "voipsigmenu", 258) = 0',
        r'KvuSetRegEntryUint16Ex(5, "HTS\DSCPMarking", "voipsigtosbyte", 46) = 0'])
    answer = properties(console.client("-nl", "gi", MARKING, only=("Signaling",)))
    console.expect("read back", (answer.get("QoSMarkVOIPSignaling"), answer.get("TOSByteSignaling")), ("258", "46"))


def switching_the_presets(console):
    console.chapter("KLonKLEnabled sets all four flows")
    console.client("mi", MARKING, "KLonKLEnabled=true")
    answer = properties(console.client("-nl", "gi", MARKING, only=("KLonKLEnabled", "QoS", "TOSByte")))
    console.expect("presets", [answer.get(flow) for flow in FLOWS], ["164", "188", "140", "188"])


def reading_the_log(console):
    console.chapter("The diagnostics log")
    console.say("Its last entries. A value that is not in the registry yet is noted as an error when it is read.")
    console.shell("tail -n 12 $KV_STATE_DIR/ORX_DSCP.log | cut -d ' ' -f 2-")
    log = read(STATE / "ORX_DSCP.log")
    console.expect("custom byte noted",
                   "Wrote new QoSMarkVOIPSignaling: 258 and TOSByteSignaling: 46 into the PDR" in log, True)
    console.expect("preset noted",
                   "Wrote new QoSMarkVideoMedia: 140 and TOSByteVideoMedia: 140 into the PDR" in log, True)
