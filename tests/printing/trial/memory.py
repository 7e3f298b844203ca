#!/usr/bin/env python3
"""The memory of a printer program: at rest, and over many jobs.

usage: memory.py PORT PROCESS JOBS PRINTER...

Sends JOBS jobs from ten clients and looks ten times at the program and at the processes of
its descriptions. Fails when they have grown after the first fifth.
"""
import concurrent.futures
import os
import subprocess
import sys
import time

import ipp

PORT, PROCESS, JOBS = (int(text) for text in sys.argv[1:4])
PRINTERS = sys.argv[4:]
MOST_GROWTH = 1024
with open(os.path.join(os.path.dirname(__file__), 'pages.ps'), 'rb') as pages:
    DOCUMENT = pages.read()


def kilobytes(process):
    """What it has alone and its share of what it has in common, and all that is resident."""
    found = {}
    with open(f'/proc/{process}/smaps_rollup', encoding='ascii') as lines:
        for line in lines:
            name, _, rest = line.partition(':')
            if name in ('Pss', 'Rss'):
                found[name] = int(rest.split()[0])
    return found


def workers():
    """The processes of the descriptions: those that stay."""
    found = subprocess.run(['pgrep', '-P', str(PROCESS)], capture_output=True, text=True, check=False)
    return [int(line) for line in found.stdout.split()][:len(PRINTERS)]


def sample():
    server, own = kilobytes(PROCESS), [kilobytes(one) for one in workers()]
    return (server['Rss'], server['Pss'], sum(one['Rss'] for one in own), sum(one['Pss'] for one in own))


def send(number):
    printer = PRINTERS[number % len(PRINTERS)]
    status, _ = ipp.send(PORT, printer, ipp.request(
        ipp.PRINT_JOB, f'ipp://localhost/ipp/print/{printer}',
        [ipp.value(ipp.NAME, 'job-name', f'job {number}'),
         ipp.value(ipp.MIME, 'document-format', 'application/postscript')],
        [ipp.value(ipp.KEYWORD, 'sides', 'one-sided')]) + DOCUMENT)
    return status


def settled():
    while True:
        time.sleep(0.2)
        counts = [ipp.send(PORT, printer, ipp.request(
            ipp.GET_PRINTER, f'ipp://localhost/ipp/print/{printer}',
            [ipp.value(ipp.KEYWORD, 'requested-attributes', 'queued-job-count')]))
            [1]['queued-job-count'][0][1] for printer in PRINTERS]
        if all(count == b'\0\0\0\0' for count in counts):
            return


def main():
    print('jobs  server RSS  PSS  processes of the descriptions RSS  PSS (KiB)')
    samples = [sample()]
    print(0, *samples[0])
    step = max(JOBS // 10, 1)
    with concurrent.futures.ThreadPoolExecutor(10) as clients:
        for done in range(0, JOBS, step):
            refused = [status for status in clients.map(send, range(done, done + step)) if status > 1]
            if refused:
                print(f'{len(refused)} jobs are refused: {refused[0]:#x}')
                return 1
            settled()
            samples.append(sample())
            print(done + step, *samples[-1])
    if JOBS == 0:
        return 0
    growth = [last - early for early, last in zip(samples[2], samples[-1])]
    print(f'grown after {2 * step} jobs: server {growth[0]} KiB, processes {growth[2]} KiB')
    return 1 if max(growth[0], growth[2]) > MOST_GROWTH else 0


if __name__ == '__main__':
    sys.exit(main())
