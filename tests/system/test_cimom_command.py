"""The object manager's command line, its signals and its exit codes."""
import json
import re
import signal
import socket
import subprocess

import pytest

from cim_xml import enumerate_instances
from cimom import CLASSES, DATA, PROGRAM, ObjectManager, ask, get_port, intrinsic, message_in


def run(*arguments):
    return subprocess.run([PROGRAM, *arguments], capture_output=True, text=True, timeout=30, check=False)


def call(*arguments):
    return run(*CLASSES, "call", *arguments)


@pytest.mark.parametrize("ending", [signal.SIGTERM, signal.SIGINT])
def test_a_signal_ends_it_cleanly(ending):
    manager = ObjectManager()
    with manager.connect() as connection:
        assert ask(connection, get_port("port0"))[0] == 200
        assert manager.end(ending) == 0
        assert connection.recv(1) == b""


def test_the_port_is_free_again_at_once():
    with ObjectManager() as first:
        with first.connect() as connection:
            ask(connection, get_port("port0"))
            first.end()  # the server closes first and keeps the connection in TIME_WAIT
    with ObjectManager(port=first.port) as second:
        assert second.port == first.port


def test_it_listens_on_loopback_only():
    with ObjectManager() as manager:
        assert manager.address == "127.0.0.1"
        with open("/proc/net/tcp", encoding="ascii") as table:
            local = [line.split()[1] for line in table if line.split()[1].endswith(f":{manager.port:04X}")]
        assert f"0100007F:{manager.port:04X}" in local and f"00000000:{manager.port:04X}" not in local


def test_it_listens_where_it_is_told():
    with ObjectManager("--address", "::1") as manager:
        with socket.create_connection(("::1", manager.port)) as connection:
            assert ask(connection, get_port("port0"))[0] == 200


def test_a_taken_port_is_an_error():
    with ObjectManager() as manager:
        second = run(*CLASSES, "--port", str(manager.port))
    assert (second.returncode, second.stderr) == (78, f"kv-cimom: cannot listen on 127.0.0.1 port {manager.port}\n")


def test_a_faulty_class_file_is_an_error(tmp_path):
    faulty = tmp_path / "faulty.mof"
    faulty.write_text("class KV_Thing {\n  strin Name;\n};\n")
    started = run("--mof", faulty)
    assert (started.returncode, started.stderr) == (78, f"kv-cimom: {faulty}:2:3: expected a type, found 'strin'\n")


def test_a_directory_stands_for_its_class_files(tmp_path):
    (tmp_path / "b.mof").write_text("class KV_B : KV_A { };\n")
    (tmp_path / "a.mof").write_text("class KV_A { };\n")
    (tmp_path / "notes.txt").write_text("no MOF")
    done = run("--mof", tmp_path, "call", "enumerateInstanceNames", "KV_B")
    assert (done.returncode, done.stdout, done.stderr) == (0, "", "")


def test_wrong_usage_is_an_error():
    assert run("--no-such-option").returncode == 64
    assert run("call").returncode == 64
    assert run("--log-level", "loud").returncode == 64
    for limit in ("-1", "0", "1073741825"):
        assert run("--max-body", limit).returncode == 64
    assert run("--help").returncode == 0


def test_a_call_prints_the_result_and_ends():
    done = call("getProperty", 'SAMPLE_Port.Name="port1"', "IPAddress")
    assert (done.returncode, done.stdout) == (0, "198.51.100.1\n")


def test_a_failing_call_ends_with_the_cim_code():
    done = call("getInstance", 'SAMPLE_Port.Name="denied"')
    assert done.returncode == 2
    assert done.stderr.splitlines()[-1] == 'CIM error 2: Access to CIM resource unavailable to client (not for "you" & <them>)'


def test_a_call_prints_json():
    done = call("getInstance", 'root/cimv2:SAMPLE_Port.Name="port2"', "--json")
    assert json.loads(done.stdout)["properties"]["Speed"] == 18446744073709551615


def test_configuration_items_and_levels_are_accepted():
    done = run(*CLASSES, "--config", "a.b=c", "--log-level", "info", "call", "enumerateInstanceNames", "SAMPLE_Service")
    assert done.returncode == 0
    assert "INFO Found provider SampleProvider\n" in done.stderr


@pytest.mark.parametrize("options, keys", [((), 4), (("--bare-names",), 0)])
def test_enumerated_instances_have_bare_names_when_asked_for(options, keys):
    with ObjectManager(*options) as manager, manager.connect() as connection:
        _, body = ask(connection, intrinsic(enumerate_instances("SAMPLE_Port")))
    names = list(message_in(body).iter("INSTANCENAME"))
    assert [len(name) for name in names] == [keys] * 3


def test_idle_providers_are_unloaded(tmp_path):
    log = tmp_path / "log"
    with open(log, "w", encoding="utf-8") as output:
        process = subprocess.Popen([PROGRAM, *CLASSES, "--port", "0", "--unload-after", "1", "--log-level", "info"],
                                   stdout=subprocess.PIPE, stderr=output, text=True)
        try:
            port = int(re.search(r"port (\d+)", process.stdout.readline()).group(1))
            with socket.create_connection(("127.0.0.1", port), 10) as connection:
                assert ask(connection, get_port("port0"))[0] == 200
                subprocess.run(["timeout", "10", "grep", "-q", "-m1", "Unloading provider SampleProvider", "/dev/stdin"],
                               stdin=subprocess.Popen(["tail", "-n", "+1", "-f", log, f"--pid={process.pid}"],
                                                      stdout=subprocess.PIPE).stdout, check=True)
                assert ask(connection, get_port("port0"))[0] == 200
        finally:
            process.terminate()
            process.stdout.close()
            assert process.wait(timeout=10) == 0
    assert log.read_text().count("SP> initialize") == 2


def test_the_class_files_of_the_product_load():
    mof = DATA.parents[2] / "mof"
    done = run("--mof", mof, "call", "enumerateInstanceNames", "ORX_LANEndpoint")
    assert done.returncode == 1  # the classes are there, their provider is not
    assert done.stderr.splitlines()[-1] == "CIM error 1: general error (Invalid provider: LANProvider)"
