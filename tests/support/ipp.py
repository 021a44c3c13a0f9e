"""Asks a print server for a job's attributes, in the server's own words.

The request and the answer are taken apart here, byte by byte, so that no print library stands
between a test and what the server was given.
"""

import http.client
import os
import struct

GET_JOB_ATTRIBUTES = 0x0009
OPERATION, END = 0x01, 0x03
INTEGER, BOOLEAN, ENUM = 0x21, 0x22, 0x23
KEYWORD, URI, CHARSET, LANGUAGE, NAME = 0x44, 0x45, 0x47, 0x48, 0x42


def encoded(tag, name, value):
    name, value = name.encode(), value.encode()
    return (struct.pack(">BH", tag, len(name)) + name + struct.pack(">H", len(value)) + value)


def decoded(tag, value):
    if tag in (INTEGER, ENUM):
        return struct.unpack(">i", value)[0]
    if tag == BOOLEAN:
        return value != b"\0"
    return value.decode("utf-8", "replace")


def attributes(answer):
    """name -> value, or a list of values where there are several."""
    version, status, number = struct.unpack(">HHI", answer[:8])
    if status >= 0x0100:
        raise OSError("the server answers with status {:04x}".format(status))
    found, name, place = {}, None, 8
    while place < len(answer) and answer[place] != END:
        tag = answer[place]
        place += 1
        if tag < 0x10:  # the beginning of a group
            continue
        size = struct.unpack_from(">H", answer, place)[0]
        place += 2
        more = size == 0
        if not more:
            name = answer[place:place + size].decode()
        place += size
        size = struct.unpack_from(">H", answer, place)[0]
        place += 2
        value = decoded(tag, answer[place:place + size])
        place += size
        if more:
            found[name] = (found[name] if isinstance(found[name], list) else [found[name]]) + [value]
        else:
            found[name] = value
    return found


def job_attributes(number, server=None):
    server = server or os.environ["CUPS_SERVER"]
    request = struct.pack(">HHI", 0x0101, GET_JOB_ATTRIBUTES, 1) + bytes([OPERATION])
    request += encoded(CHARSET, "attributes-charset", "utf-8")
    request += encoded(LANGUAGE, "attributes-natural-language", "en")
    request += encoded(URI, "job-uri", "ipp://{}/jobs/{}".format(server, number))
    request += encoded(KEYWORD, "requested-attributes", "all") + bytes([END])
    connection = http.client.HTTPConnection(server, timeout=30)
    try:
        connection.request("POST", "/jobs/{}".format(number), request,
                           {"Content-Type": "application/ipp"})
        return attributes(connection.getresponse().read())
    finally:
        connection.close()
