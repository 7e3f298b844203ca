#!/usr/bin/env python3
"""Sends jobs with random values of what printers advertise, and compares the whole job at
the device with what `driver-feature emit` writes for the settings that the printer has noted.

usage: imported_jobs.py PROGRAM FOLDER PORT JOBS SEED NAME...

JOBS for each printer. The descriptions are FOLDER/NAME.xml, the spool is FOLDER/spool, and
the jobs arrive at FOLDER/printed/.
"""
import json
import os
import random
import struct
import sys
import time
import urllib.error

import ipp
from whole_job import EXIT, Emitter, Refused, sectionsOf, without

PROGRAM, FOLDER, PORT, JOBS, SEED = sys.argv[1:6]
with open(os.path.join(os.path.dirname(__file__), 'pages.ps'), 'rb') as pages:
    DOCUMENT = pages.read()
CONFLICTING = 0x040e
# What is about pages, or about the job and not about features.
OTHERS = {'copies', 'number-up', 'page-ranges', 'orientation-requested', 'job-hold-until',
          'multiple-document-handling', 'finishings-col', 'ipp-attribute-fidelity', 'overrides',
          'job-password', 'job-password-encryption', 'print-content-optimize',
          'print-rendering-intent', 'media-col'}


class Printer:
    def __init__(self, name):
        self.name = name
        self.uri = f'ipp://localhost/ipp/print/{name}'
        self.random = random.Random(f'{SEED} {name}')
        self.emitter = Emitter(PROGRAM, f'{FOLDER}/{name}.xml')
        self.attributes = {}
        self.sent = self.refused = 0

    def learn(self):
        _, self.attributes = ipp.send(PORT, self.name, ipp.request(ipp.GET_PRINTER, self.uri))

    def pick(self, name):
        """A random advertised value, as (tag, data); nothing where there is none."""
        values = self.attributes.get(name + '-supported', [])
        if not values:
            return None
        tag, data = self.random.choice(values)
        if tag == ipp.RANGE:
            lower, upper = struct.unpack('>ii', data)
            if any(tag == ipp.NAME for tag, _ in self.attributes.get(name + '-default', [])):
                return None  # The length of a text.
            return ipp.INTEGER, struct.pack('>i', self.random.choice((lower, upper)))
        return tag, data

    def job(self):
        names = [data.decode() for _, data in self.attributes['job-creation-attributes-supported']]
        job, members = [], []
        # Few in most jobs: many break a rule of some printers.
        share = self.random.choice((0.1, 0.2, 0.5))
        for name in names:
            picked = self.pick(name) if name not in OTHERS and self.random.random() < share else None
            if picked and not (name == 'media' and b'_min_' in picked[1] + b'_max_'):
                job.append(ipp.value(picked[0], name, picked[1]))
        for name in ('media-source', 'media-type'):
            picked = self.pick(name) if self.random.random() < share else None
            if picked:
                members.append((picked[0], name, picked[1]))
        has = any(part[3:8] == b'media' and part[8:9] == b'\0' for part in job)
        if members and not has:
            job.append(ipp.collection('media-col', members))
        return job + [ipp.value(ipp.KEYWORD, 'job-hold-until', 'indefinite')]

    def one(self):
        status, reply = ipp.send(
            PORT, self.name,
            ipp.request(ipp.PRINT_JOB, self.uri,
                        [ipp.value(ipp.NAME, 'job-name', 'trial'),
                         ipp.value(ipp.MIME, 'document-format', 'application/postscript'),
                         ipp.value(ipp.BOOLEAN, 'ipp-attribute-fidelity', True)],
                        self.job()) + DOCUMENT)
        self.sent += 1
        if status == CONFLICTING:
            self.refused += 1
            return None
        if status != 0:
            return f'it is not accepted: {status:#x} {reply}'
        number = struct.unpack('>i', reply['job-id'][0][1])[0]
        with open(f'{FOLDER}/spool/jobs/{number}/job.json', encoding='utf-8') as record:
            options = json.load(record)['options']
        settings = [f'{name}={text}' for name, text in map(self.pair, options)]
        ipp.send(PORT, self.name, ipp.request(ipp.RELEASE_JOB, self.uri,
                                              [ipp.value(ipp.INTEGER, 'job-id', number)]))
        job = self.arrived(number)
        try:
            pjl, postScript = self.emitter.texts(settings)
        except Refused as refused:
            self.refused += 1
            return f'job {number} is printed, but: {refused}' if job is not None else None
        except UnicodeError as fault:
            return f'job {number}: {fault}'
        if job is None:
            return f'job {number} is not printed; settings {settings}'
        return self.compared(number, job, pjl, postScript, settings)

    @staticmethod
    def pair(option):
        return (option['name'], option['value']) if isinstance(option, dict) else option

    def arrived(self, number):
        path = f'{FOLDER}/printed/{self.name}-{number}.prn'
        for _ in range(1000):
            if os.path.exists(path):
                with open(path, 'rb') as job:
                    return job.read()
            time.sleep(0.01)
            with open(f'{FOLDER}/spool/jobs/{number}/job.json', encoding='utf-8') as record:
                if json.load(record)['state'] in (7, 8):
                    return None
        return None

    @staticmethod
    def compared(number, job, pjl, postScript, settings):
        # Without the lines that announce it, PJL is not written.
        header = pjl if job.startswith(pjl) else b''
        if pjl and not header and job.startswith(EXIT):
            return f'job {number}: other PJL: {job[:200]!r} instead of {pjl[:200]!r}'
        try:
            rest = without(job, header, sectionsOf(postScript))
        except AssertionError as fault:
            return f'job {number}: {str(fault)[:600]}; settings {settings}'
        end = rest[len(DOCUMENT):]
        if not rest.startswith(DOCUMENT) or (end not in (b'', b'\4') and EXIT not in end):
            return f'job {number}: another document: {rest[:2000]!r}; settings {settings}'
        os.remove(os.path.join(FOLDER, 'printed', next(
            name for name in os.listdir(f'{FOLDER}/printed') if name.endswith(f'-{number}.prn'))))
        return None


def main():
    faults = sent = refused = 0
    for name in sys.argv[6:]:
        printer = Printer(name)
        try:
            printer.learn()
        except (urllib.error.URLError, OSError) as fault:
            print(f'{name}: {fault}')
            faults += 1
            continue
        for _ in range(int(JOBS)):
            fault = printer.one()
            if fault:
                print(f'{name}: {fault}')
                faults += 1
        sent, refused = sent + printer.sent, refused + printer.refused
    print(f'{len(sys.argv) - 6} printers, {sent} jobs, {refused} refused by rules: {faults} faults')
    return 1 if faults else 0


if __name__ == '__main__':
    sys.exit(main())
