#!/usr/bin/env python3
"""What a small PostScript job costs with each of several IPP printers, in turns.

usage: printer_cost.py ROUNDS DOCUMENT DEVICE_PORT NAME=PORT/PATH=PROCESS[,PROCESS]...

The jobs of all of them come to DEVICE_PORT, which this program listens at. Prints a table
in Markdown: from the beginning of the request to the first byte at the device, to the
response, and to the end of the job at the device; and the memory at rest.
"""
import os
import queue
import socket
import statistics
import sys
import threading
import time

sys.path.insert(0, os.path.join(os.path.dirname(__file__), '../tests/printing/trial'))
import ipp  # noqa: E402

ROUNDS, DEVICE = int(sys.argv[1]), int(sys.argv[3])
WARM = 3


class Device(threading.Thread):
    """A printer at a port: notes when a job's first byte and its end come."""

    def __init__(self):
        super().__init__(daemon=True)
        self.server = socket.create_server(('127.0.0.1', DEVICE))
        self.jobs = queue.Queue()

    def run(self):
        while True:
            peer, _ = self.server.accept()
            first, job = None, b''
            with peer:
                while part := peer.recv(65536):
                    first = first or time.monotonic()
                    job += part
            if job:
                self.jobs.put((first, time.monotonic(), job))


def kilobytes(processes):
    total = 0
    for process in processes:
        with open(f'/proc/{process}/smaps_rollup', encoding='ascii') as lines:
            total += sum(int(line.split()[1]) for line in lines if line.startswith('Pss:'))
    return total


def one(device, port, path, document):
    uri = f'ipp://localhost:{port}/{path}'
    attributes = [ipp.value(ipp.NAME, 'job-name', 'cost'),
                  ipp.value(ipp.MIME, 'document-format', 'application/postscript')]
    begin = time.monotonic()
    status, _ = ipp.post(port, path, ipp.request(ipp.PRINT_JOB, uri, attributes) + document)
    answered = time.monotonic()
    if status > 1:
        raise RuntimeError(f'{uri}: {status:#x}')
    first, end, job = device.jobs.get(timeout=30)
    if document.split(b'%%EndComments')[1][-40:-10] not in job:
        raise RuntimeError(f'{uri}: another job arrives')
    # The next one is not to wait for what this one leaves.
    time.sleep(0.3)
    return first - begin, answered - begin, end - begin


def spread(values):
    values = sorted(1000 * value for value in values)
    tenth = len(values) // 10
    return f'{statistics.median(values):.1f} ({values[tenth]:.1f} to {values[-1 - tenth]:.1f})'


def main():
    with open(sys.argv[2], 'rb') as source:
        document = source.read()
    printers = []
    for argument in sys.argv[4:]:
        name, place, processes = argument.split('=')
        port, path = place.split('/', 1)
        printers.append((name, int(port), path, [int(one) for one in processes.split(',')]))
    device = Device()
    device.start()
    rest = {name: kilobytes(processes) for name, _, _, processes in printers}
    times = {name: [] for name, _, _, _ in printers}
    for turn in range(ROUNDS + WARM):
        for name, port, path, _ in printers:
            taken = one(device, port, path, document)
            if turn >= WARM:
                times[name].append(taken)
    print(f'| {ROUNDS} jobs each, in turns | first byte at the device, ms | response, ms '
          '| end of the job, ms | memory at rest, MiB |\n|---|---|---|---|---|')
    for name, _, _, _ in printers:
        columns = ' | '.join(spread(column) for column in zip(*times[name]))
        print(f'| {name} | {columns} | {rest[name] / 1024:.1f} |')


if __name__ == '__main__':
    main()
