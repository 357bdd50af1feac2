"""The preloaded library plays the packet filter's driver, and nothing else."""
import pytest

RECORD = "cat $KV_NETFILTER_LOG"


def ioctl(path, request, value, environment=""):
    program = ("import fcntl, os, struct; "
               f"fd = os.open('{path}', os.O_RDWR | os.O_CREAT); "
               f"print(fcntl.ioctl(fd, {request}, struct.pack('I', {value})))")
    return f'{environment} LD_PRELOAD=$KV_OBJECT_MANAGER_PRELOAD /usr/bin/python3 -c "{program}"'


@pytest.mark.parametrize("request_code", ["0x8004AB02", "0x8004AB03", "0x8004AB04", "0x8004AB05"])
def test_each_request_of_the_driver_is_recorded_with_its_value(server, request_code):
    server.sh(ioctl("/dev/kv_netfilter", request_code, 1))
    server.sh(ioctl("/dev/kv_netfilter", request_code, 0))
    assert server.sh(RECORD) == f"{request_code} 1\n{request_code} 0\n"


@pytest.mark.parametrize("request_code", ["0x8004AB01", "0x8004AB06", "0x4004AB02"])
def test_any_other_request_to_the_device_goes_to_the_kernel(server, request_code):
    result = server.run(ioctl("/dev/kv_netfilter", request_code, 1))
    assert "Inappropriate ioctl for device" in result.err
    assert server.run(RECORD).status == 1


def test_the_same_request_to_another_file_goes_to_the_kernel(server):
    result = server.run(ioctl("/run/other", "0x8004AB02", 1))
    assert "Inappropriate ioctl for device" in result.err
    assert server.run(RECORD).status == 1


def test_an_interface_ioctl_answers_as_ever(server):
    program = ("import fcntl, socket, struct; s = socket.socket(socket.AF_INET, socket.SOCK_DGRAM); "
               "print(struct.unpack('16si', fcntl.ioctl(s, 0x8921, struct.pack('16si', b'eth1', 0)))[1])")
    assert server.sh(f'LD_PRELOAD=$KV_OBJECT_MANAGER_PRELOAD /usr/bin/python3 -c "{program}"') == "1500\n"


def test_a_record_that_cannot_be_written_fails_the_ioctl(server):
    result = server.run(ioctl("/dev/kv_netfilter", "0x8004AB02", 1, "KV_NETFILTER_LOG=/nowhere/record"))
    assert "[Errno 5] Input/output error" in result.err


def test_a_program_that_the_process_starts_is_not_preloaded(server):
    program = "import subprocess; subprocess.run(['env'])"
    shown = server.sh(f'LD_PRELOAD=$KV_OBJECT_MANAGER_PRELOAD /usr/bin/python3 -c "{program}"')
    assert "LD_PRELOAD=" not in shown
    assert "KV_OBJECT_MANAGER_PRELOAD=" in shown
