"""The object manager under requests that are none, slow clients and many clients."""
import os
import random
import select
import threading
import time

import pytest

from cim_xml import class_named, parameter
from cimom import ObjectManager, ask, get_port, intrinsic, message_in, post, receive
from recorded_exchanges import all_exchanges

MUTATIONS = 10000
PARALLEL_SECONDS = float(os.environ.get("CIMOM_PARALLEL_SECONDS", "8"))


@pytest.fixture
def manager():
    with ObjectManager("--log-level", "none") as started:
        yield started
        assert started.end() == 0


def recorded_bodies():
    """Bodies of recorded requests; bytes of a real client make better material than anything made up."""
    requests = [exchange.request.replace(b"\r\n", b"\n") for exchange in all_exchanges()]
    return [body for _, _, body in (request.partition(b"\n\n") for request in requests) if len(body) > 100]


def flip_bits(random_source, body):
    changed = bytearray(body)
    for _ in range(random_source.randint(1, 8)):
        changed[random_source.randrange(len(changed))] ^= 1 << random_source.randrange(8)
    return post(bytes(changed))


def truncate(random_source, body):
    return post(body[:random_source.randrange(len(body))])


def cut_out(random_source, body):
    begin = random_source.randrange(len(body))
    return post(body[:begin] + body[begin + random_source.randint(1, 200):])


def repeat_a_part(random_source, body):
    begin = random_source.randrange(len(body))
    part = body[begin:begin + random_source.randint(1, 200)]
    return post(body[:begin] + part * random_source.randint(2, 50) + body[begin:])


def nest_deeply(random_source, body):
    depth = random_source.randint(1, 20000)
    at = body.find(b"<", random_source.randrange(len(body)))
    closing = b"</V>" * random_source.choice([0, depth, depth])
    return post(body[:at] + b"<V>" * depth + closing + body[at:])


def huge_attribute(random_source, body):
    at = body.find(b'="', random_source.randrange(len(body))) + 2
    return post(body[:at] + b"x" * random_source.randint(1, 200000) + body[at:])


def entity_bomb(random_source, body):
    entities = b'<!ENTITY e0 "' + b"x" * 100 + b'">'
    for level in range(1, random_source.randint(2, 30)):
        entities += b'<!ENTITY e%d "%s">' % (level, b"&e%d;" % (level - 1) * 10)
    return post(body.replace(b"<CIM", b"<!DOCTYPE CIM [" + entities + b"]><CIM", 1).replace(b"SAMPLE_Port", b"&e%d;" % level))


def wrong_length(random_source, body):
    request = post(body)
    length = b"Content-Length: %d" % len(body)
    wrong = random_source.choice([b"%d" % random_source.randrange(len(body)), b"-1", b"abc", b"", b"99999999999999999999",
                                  b"0", b"%d" % (len(body) + 5)])
    return request.replace(length, b"Content-Length: " + wrong)


def flip_bits_of_the_head(random_source, body):
    changed = bytearray(post(body))
    for _ in range(random_source.randint(1, 4)):
        changed[random_source.randrange(changed.find(b"\r\n\r\n"))] ^= 1 << random_source.randrange(8)
    return bytes(changed)


def oversized(random_source, body):
    return post(body + b" " * (1 << 20))


KINDS = [flip_bits, flip_bits, truncate, cut_out, repeat_a_part, nest_deeply, huge_attribute, entity_bomb, wrong_length,
         flip_bits_of_the_head]


def exchange(manager, request):
    """Sends a request and looks at what comes back at once; a server that waits for more gets no more."""
    with manager.connect(0.02) as connection:
        try:
            connection.sendall(request)
            return connection.recv(65536)
        except OSError:
            return None


def test_mutated_requests_leave_it_serving(manager):
    source = random.Random(20040930)
    bodies = recorded_bodies()
    with manager.connect() as connection:
        expected = ask(connection, get_port("port0"))
    assert expected[0] == 200 and b"<ERROR" not in expected[1]
    for number in range(500):  # let memory grow to what it needs
        exchange(manager, KINDS[number % len(KINDS)](source, source.choice(bodies)))
    descriptors = manager.wait_for_descriptors(12)
    memory = manager.resident_kilobytes()
    answered = 0
    for number in range(MUTATIONS):
        kind = oversized if number % 200 == 0 else KINDS[number % len(KINDS)]
        if exchange(manager, kind(source, source.choice(bodies))):
            answered += 1
        if number % 250 == 0:
            with manager.connect() as connection:
                assert ask(connection, get_port("port0")) == expected, f"after {number} requests"
    assert answered > MUTATIONS / 2
    assert manager.wait_for_descriptors(descriptors) <= descriptors
    assert manager.resident_kilobytes() < memory + 32 * 1024


def test_parallel_clients_get_their_own_answers(manager):
    questions = [(name, f"{name}-{{0}}", lambda message_id, port=name: get_port(port, message_id))
                 for name in ("port0", "port1", "port2", "nope", "withid")]
    class_parameter = parameter("ClassName", class_named("SAMPLE_Port"))
    for method in ("EnumerateInstances", "EnumerateInstanceNames", "GetClass"):
        questions.append((method, method + "-{0}", lambda message_id, call=(method, class_parameter): intrinsic(call, message_id)))
    with manager.connect() as connection:
        alone = {name: ask(connection, ask_with("0"))[1] for name, _, ask_with in questions}
    assert len(set(alone.values())) == len(questions)
    wrong, served = [], [0] * 8
    deadline = time.monotonic() + PARALLEL_SECONDS

    def client(index):
        with manager.connect() as connection:
            while time.monotonic() < deadline and not wrong:
                name, id_form, ask_with = questions[(index + served[index]) % len(questions)]
                message_id = id_form.format(f"{index}-{served[index]}")
                answer = ask(connection, ask_with(message_id))
                if answer != (200, alone[name].replace(b'ID="0"', f'ID="{message_id}"'.encode(), 1)):
                    wrong.append((message_id, answer))
                served[index] += 1

    threads = [threading.Thread(target=client, args=(index,)) for index in range(8)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert not wrong
    assert min(served) > 10


def test_many_silent_connections_hold_up_nobody(manager):
    before = manager.descriptors()
    silent = [manager.connect() for _ in range(200)]
    for number, connection in enumerate(silent):
        connection.sendall(post(get_port("port0", f"silent{number}"))[:-1])
    with manager.connect() as connection:
        assert message_in(ask(connection, get_port("port1", "one"))[1]).get("ID") == "one"
    for number, connection in enumerate(silent):
        connection.sendall(b">")
        status, body = receive(connection)
        assert status == 200 and message_in(body).get("ID") == f"silent{number}"
        connection.close()
    assert manager.wait_for_descriptors(before) <= before


def test_more_connections_than_allowed_wait_for_their_turn():
    with ObjectManager("--max-connections", "10", "--log-level", "none") as manager:
        first = [manager.connect() for _ in range(10)]
        for connection in first:
            assert ask(connection, get_port("port0"))[0] == 200
        late = manager.connect()
        late.sendall(post(get_port("port1")))
        for connection in first:
            connection.close()
        assert receive(late)[0] == 200
        late.close()


def test_slow_clients_are_dropped_after_the_timeout():
    with ObjectManager("--timeout", "1", "--log-level", "none") as manager:
        with manager.connect() as head, manager.connect() as body, manager.connect() as idle:
            head.sendall(b"POST /cimom HTTP/1.1\r\nHost:")
            body.sendall(post(get_port("port0"))[:-5])
            assert ask(idle, get_port("port0"))[0] == 200
            for connection in (head, body):
                assert receive(connection)[0] == 408
                assert connection.recv(1) == b""
            assert idle.recv(1) == b""


@pytest.mark.parametrize("first", [5, post(get_port("port0")).find(b"\r\n\r\n") + 4], ids=["header", "body"])
def test_sending_a_byte_at_a_time_gains_no_time(first):
    request = post(get_port("port0"))
    with ObjectManager("--timeout", "1", "--log-level", "none") as manager, manager.connect() as connection:
        connection.sendall(request[:first])
        begun = time.monotonic()
        for at in range(first, first + 20):  # four seconds, each byte well before a silent client is dropped
            connection.sendall(request[at:at + 1])
            if select.select([connection], [], [], 0.2)[0]:
                break
        assert 0.5 < time.monotonic() - begun < 3
        assert receive(connection)[0] == 408


def test_who_does_not_read_the_answer_is_dropped():
    with ObjectManager("--timeout", "1", "--log-level", "none") as manager:
        descriptors = manager.descriptors()
        with manager.connect() as connection:
            connection.setblocking(False)
            with pytest.raises(BlockingIOError):
                while True:
                    connection.send(post(intrinsic(("EnumerateQualifiers",))))
            assert manager.wait_for_descriptors(descriptors) <= descriptors
