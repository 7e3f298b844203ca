"""As much of IPP as trials need: requests, and the attributes of responses."""
import struct
import urllib.request

INTEGER, BOOLEAN, ENUM, OCTETS, RESOLUTION, RANGE, BEGIN, END, NAME, KEYWORD, URI, CHARSET, \
    LANGUAGE, MIME, MEMBER = (0x21, 0x22, 0x23, 0x30, 0x32, 0x33, 0x34, 0x37, 0x42, 0x44, 0x45,
                              0x47, 0x48, 0x49, 0x4a)
PRINT_JOB, RELEASE_JOB, GET_JOB, GET_PRINTER = 0x02, 0x0d, 0x09, 0x0b


def value(tag, name, data):
    if isinstance(data, str):
        data = data.encode()
    elif isinstance(data, bool):
        data = bytes([data])
    elif isinstance(data, int):
        data = struct.pack('>i', data)
    return struct.pack('>BH', tag, len(name)) + name.encode() + struct.pack('>H', len(data)) + data


def collection(name, members):
    """Members are (tag, name, data)."""
    out = value(BEGIN, name, b'')
    for tag, member, data in members:
        out += value(MEMBER, '', member) + value(tag, '', data)
    return out + value(END, '', b'')


def request(operation, uri, attributes=(), job=()):
    out = struct.pack('>BBHI', 2, 0, operation, 1) + b'\1'
    out += value(CHARSET, 'attributes-charset', 'utf-8')
    out += value(LANGUAGE, 'attributes-natural-language', 'en') + value(URI, 'printer-uri', uri)
    out += value(NAME, 'requesting-user-name', 'jane') + b''.join(attributes)
    return out + (b'\2' + b''.join(job) if job else b'') + b'\3'


def parse(data):
    """The status, and the first level of the attributes: name to [(tag, data)...]."""
    status = struct.unpack('>H', data[2:4])[0]
    attributes, name, depth, at = {}, '', 0, 8
    while at < len(data) and data[at] != 3:
        tag = data[at]
        at += 1
        if tag < 0x10:
            continue
        length = struct.unpack('>H', data[at:at + 2])[0]
        own = data[at + 2:at + 2 + length].decode()
        at += 2 + length
        length = struct.unpack('>H', data[at:at + 2])[0]
        content = data[at + 2:at + 2 + length]
        at += 2 + length
        if own and depth == 0:
            name = own
            attributes[name] = []
        if tag == END:
            depth -= 1
        elif depth == 0:
            attributes[name].append((tag, content))
        if tag == BEGIN:
            depth += 1
    return status, attributes


def send(port, printer, data):
    return post(port, f'ipp/print/{printer}', data)


def post(port, path, data):
    http = urllib.request.Request(f'http://localhost:{port}/{path}', data,
                                  {'Content-Type': 'application/ipp'})
    with urllib.request.urlopen(http, timeout=60) as response:
        return parse(response.read())
