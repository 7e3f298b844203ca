#!/usr/bin/env python3
"""Sends mutated requests to a printer program for some time: IPP of each operation with
attributes of all kinds, documents of all types, and the HTTP around them. Some of them are
encrypted, in some the encryption itself is mutated. The program must stay, and respond to
requests that are not mutated after each hundred, in the clear and encrypted.

usage: mutated_requests.py SECONDS SEED PORT PROCESS DOCUMENT...

The names of documents end with ps, pdf, jpg or pwg. Prints how many requests were sent.
"""
import os
import random
import socket
import ssl
import struct
import sys
import time

SECONDS, SEED, PORT, PROCESS = (int(text) for text in sys.argv[1:5])
TYPES = {'ps': 'application/postscript', 'pdf': 'application/pdf', 'jpg': 'image/jpeg',
         'pwg': 'image/pwg-raster'}
INTEGER, BOOLEAN, ENUM, OCTETS, DATE, RESOLUTION, RANGE, BEGIN, END, TEXT, NAME, KEYWORD, URI, \
    CHARSET, LANGUAGE, MIME, MEMBER = (0x21, 0x22, 0x23, 0x30, 0x31, 0x32, 0x33, 0x34, 0x37, 0x41,
                                       0x42, 0x44, 0x45, 0x47, 0x48, 0x49, 0x4a)
OPERATIONS = (0x02, 0x04, 0x05, 0x06, 0x08, 0x09, 0x0a, 0x0b, 0x0c, 0x0d, 0x15, 0x39, 0x3b, 0x3c)
CHANGING = (0x02, 0x04, 0x05)


def value(tag, name, data):
    return struct.pack('>BH', tag, len(name)) + name.encode() + struct.pack('>H', len(data)) + data


def collection(name, *members):
    out = value(BEGIN, name, b'')
    for tag, member, data in members:
        out += value(MEMBER, '', member.encode()) + value(tag, '', data)
    return out + value(END, '', b'')


def size(width, height):
    return (value(MEMBER, '', b'media-size') + value(BEGIN, '', b'')
            + value(MEMBER, '', b'x-dimension') + value(INTEGER, '', struct.pack('>i', width))
            + value(MEMBER, '', b'y-dimension') + value(INTEGER, '', struct.pack('>i', height))
            + value(END, '', b''))


ATTRIBUTES = [
    value(KEYWORD, 'sides', b'two-sided-long-edge'), value(KEYWORD, 'media', b'iso_a5_148x210mm'),
    value(KEYWORD, 'media', b'custom_x_100x200mm'), value(INTEGER, 'copies', struct.pack('>i', 3)),
    value(ENUM, 'finishings', struct.pack('>i', 20)) + value(ENUM, '', struct.pack('>i', 74)),
    collection('finishings-col', (KEYWORD, 'finishing-template', b'handout')),
    value(BEGIN, 'media-col', b'') + size(21000, 29700) + value(MEMBER, '', b'media-source')
    + value(KEYWORD, '', b'tray-2') + value(END, '', b''),
    value(RESOLUTION, 'printer-resolution', struct.pack('>iib', 1200, 1200, 3)),
    value(RANGE, 'page-ranges', struct.pack('>ii', 1, 1)), value(INTEGER, 'number-up', struct.pack('>i', 2)),
    value(NAME, 'x-gamma', b'1.25'), value(BOOLEAN, 'x-toner-save', b'\1'),
    value(INTEGER, 'print-darkness', struct.pack('>i', 4)), value(KEYWORD, 'x-watermark', b'draft'),
    value(NAME, 'job-accounting-id', b'sales'), value(KEYWORD, 'job-hold-until', b'indefinite'),
    value(KEYWORD, 'output-bin', b'stacker-1'), value(DATE, 'job-hold-until-time', bytes(11)),
    value(0x35, 'job-sheets', struct.pack('>H', 2) + b'en' + struct.pack('>H', 4) + b'none'),
    value(KEYWORD, 'requested-attributes', b'all') + value(KEYWORD, '', b'media-col-database'),
]


class Mutator:
    def __init__(self, seed, documents):
        self.random = random.Random(seed)
        self.documents = documents

    def request(self):
        pick = self.random
        operation = pick.choice(OPERATIONS)
        printer = pick.choice(('office', 'labels', 'office/handout', 'nobody'))
        head = struct.pack('>BBHI', pick.choice((1, 2)), pick.choice((0, 1)), operation, 7) + b'\1'
        head += value(CHARSET, 'attributes-charset', b'utf-8')
        head += value(LANGUAGE, 'attributes-natural-language', b'en')
        head += value(URI, 'printer-uri', f'ipp://localhost/ipp/print/{printer}'.encode())
        if operation in (0x06, 0x08, 0x09, 0x0c, 0x0d, 0x3b):
            head += value(INTEGER, 'job-id', struct.pack('>i', pick.randint(1, 60)))
        head += value(NAME, 'requesting-user-name', pick.choice((b'jane', b'john', b'')))
        kind, document = '', b''
        if operation in (0x02, 0x06):
            kind, document = pick.choice(self.documents)
            head += value(MIME, 'document-format', TYPES[kind].encode())
            head += value(BOOLEAN, 'last-document', b'\1')
        if operation == 0x0a:
            head += value(KEYWORD, 'which-jobs', pick.choice((b'all', b'completed')))
        if operation == 0x02 and pick.random() < 0.1:
            head += value(OCTETS, 'job-password', b'1234')
        if operation in CHANGING:
            head += b'\2' + b''.join(pick.sample(ATTRIBUTES, pick.randint(0, 8)))
        return head + b'\3', document

    def mutated(self, data, times):
        data = bytearray(data)
        pick = self.random
        for _ in range(times):
            at = pick.randrange(len(data) + 1)
            what = pick.randrange(7)
            if what == 0 and at < len(data):
                data[at] ^= 1 << pick.randrange(8)
            elif what == 1 and at < len(data):
                data[at] = pick.choice((0, 1, 0x7f, 0x80, 0xff, 0x34, 0x37, 0x4a, 3))
            elif what == 2:
                del data[at:at + pick.randint(1, 20)]
            elif what == 3:
                data[at:at] = pick.randbytes(pick.randint(1, 20))
            elif what == 4:
                other = pick.randrange(len(data) + 1)
                data[at:at] = data[other:other + pick.randint(1, 200)]
            elif what == 5:
                data[at:at + 2] = struct.pack('>H', pick.choice((0, 1, 255, 1023, 32767, 65535)))
            else:
                data[at:at + 4] = struct.pack('>i', pick.choice((0, -1, 1 << 30, -(1 << 31), 65536)))
        return bytes(data)

    def message(self):
        """HTTP with IPP in it; one of them is mutated, or the document."""
        pick = self.random
        head, document = self.request()
        where = pick.random()
        if where < 0.6:
            head = self.mutated(head, pick.randint(1, 8))
        elif where < 0.8 and document:
            document = self.mutated(document, pick.randint(1, 30))
        body = head + document
        lines = [f'POST /ipp/print/office HTTP/1.{pick.choice("0111")}', 'Host: localhost',
                 'Content-Type: application/ipp']
        if pick.random() < 0.1:
            lines.append('Expect: 100-continue')
        if pick.random() < 0.3:
            lines.append('Transfer-Encoding: chunked')
            cut = pick.randint(0, len(body))
            parts = [part for part in (body[:cut], body[cut:]) if part]
            body = b''.join(b'%x\r\n%s\r\n' % (len(part), part) for part in parts) + b'0\r\n\r\n'
        else:
            lines.append(f'Content-Length: {len(body)}')
        http = ('\r\n'.join(lines) + '\r\n\r\n').encode()
        if where > 0.9:
            http = self.mutated(http, pick.randint(1, 4))
        return http + body


def tlsContext():
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_CLIENT)
    context.check_hostname = False
    context.verify_mode = ssl.CERT_NONE
    return context


TLS = tlsContext()


class TlsBytes:
    """Encrypts on its own, so that what goes over the network can be changed on its way."""

    def __init__(self, peer):
        self.peer, self.arriving, self.leaving = peer, ssl.MemoryBIO(), ssl.MemoryBIO()
        self.tls = TLS.wrap_bio(self.arriving, self.leaving)

    def flush(self, change):
        if data := self.leaving.read():
            self.peer.sendall(change(data))

    def handshake(self, change):
        while True:
            try:
                self.tls.do_handshake()
                return self.flush(change)
            except ssl.SSLWantReadError:
                self.flush(change)
                data = self.peer.recv(65536)
                if not data:
                    raise ConnectionError from None
                self.arriving.write(data)

    def send(self, data, change):
        self.handshake(change)
        self.tls.write(data)
        self.flush(change)


def receive(peer, whole):
    answer = b''
    try:
        while part := peer.recv(65536):
            answer += part
            if whole and b'media-col-default' in answer:
                break
    except OSError:
        pass
    return answer


def exchange(data, whole=False, isEncrypted=False):
    with socket.create_connection(('127.0.0.1', PORT), timeout=20) as peer:
        peer.settimeout(20 if whole else 0.3)
        try:
            if isEncrypted:
                # Sanitizers make the handshake slow.
                peer.settimeout(20)
                peer = TLS.wrap_socket(peer)
                peer.settimeout(20 if whole else 0.3)
            peer.sendall(data)
            if not whole and not isEncrypted:
                peer.shutdown(socket.SHUT_WR)
        except OSError:
            pass
        answer = receive(peer, whole)
        peer.close()
        return answer


def exchangeMutatedTls(data, mutator):
    """Bytes of the handshake or of the encrypted request arrive changed."""
    begin = mutator.random.choice((0, 0, 1, 2))
    seen = 0

    def change(piece):
        nonlocal seen
        seen += 1
        return mutator.mutated(piece, mutator.random.randint(1, 4)) if seen > begin else piece
    with socket.create_connection(('127.0.0.1', PORT), timeout=20) as peer:
        peer.settimeout(1)
        try:
            TlsBytes(peer).send(data, change)
            peer.settimeout(0.3)
        except (OSError, ssl.SSLError):
            pass
        receive(peer, False)


def isAlive(isEncrypted):
    head = (struct.pack('>BBHI', 2, 0, 0x0b, 1) + b'\1' + value(CHARSET, 'attributes-charset', b'utf-8')
            + value(LANGUAGE, 'attributes-natural-language', b'en')
            + value(URI, 'printer-uri', b'ipp://localhost/ipp/print/office') + b'\3')
    http = f'POST /ipp/print/office HTTP/1.1\r\nHost: localhost\r\nContent-Type: application/ipp\r\n' \
           f'Content-Length: {len(head)}\r\n\r\n'
    return b'media-col-default' in exchange(http.encode() + head, True, isEncrypted)


def main():
    documents = []
    for path in sys.argv[5:]:
        with open(path, 'rb') as document:
            documents.append((path.rsplit('.', 1)[1], document.read()))
    mutator = Mutator(SEED, documents)
    end, sent = time.monotonic() + SECONDS, 0
    while time.monotonic() < end:
        message, way = mutator.message(), mutator.random.random()
        if way < 0.05:
            exchangeMutatedTls(message, mutator)
        else:
            exchange(message, isEncrypted=way < 0.15)
        sent += 1
        if sent % 100:
            continue
        try:
            os.kill(PROCESS, 0)
            if isAlive(False) and isAlive(True):
                continue
        except OSError:
            pass
        print(f'the program does not respond after {sent} requests (seed {SEED})')
        return 1
    print(f'{sent} mutated requests in {SECONDS} s')
    return 0


if __name__ == '__main__':
    sys.exit(main())
