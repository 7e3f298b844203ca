#!/usr/bin/env python3
"""Prints jobs with random options through queues that a scheduler has made of printers
("lpadmin -m everywhere"), and compares every command of each with what
`driver-feature emit` writes for the same settings.

usage: random_jobs.py PROGRAM ROUTINES FOLDER COUNT SEED DOCUMENT

The queues are those of queues.py, the descriptions FOLDER/NAME.xml, and the jobs arrive
at FOLDER/printer/printed/NAME-NUMBER.prn.
"""
import glob
import os
import random
import re
import subprocess
import sys
import threading
import time

import queues
from whole_job import Emitter, Refused, sectionsOf, without

PROGRAM, ROUTINES, FOLDER, COUNT, SEED, DOCUMENT = sys.argv[1:7]
TITLE, USER = 'trial', 'jane'


class Queue(threading.Thread):
    """The jobs of one queue, one after another."""

    def __init__(self, name, groups, defaults, count, seed):
        super().__init__()
        self.name_, self.groups, self.defaults, self.count = name, groups, defaults, count
        self.random = random.Random(f'{seed} {name}')
        self.isNative = name in ('office', 'labels')
        self.emitter = Emitter(PROGRAM, f'{FOLDER}/{name}.xml', ROUTINES if self.isNative else None)
        self.faults, self.documents, self.good, self.refused = [], {}, 0, 0
        self.known = set(self.jobs())

    def draw(self):
        """Arguments of lp and settings that the description accepts together."""
        while True:
            chosen = []
            for group in self.groups:
                if self.random.random() < 0.5:
                    chosen.append(self.random.choice(group))
            self.random.shuffle(chosen)
            settings = queues.settingsOf(chosen, self.defaults)
            try:
                texts = self.emitter.texts(self.named(settings))
            except Refused:
                self.refused += 1
                continue
            return [word for words, _ in chosen for word in words], settings, texts

    def named(self, settings):
        if not self.isNative:
            return settings
        names = [f'JobName={TITLE}']
        return settings + (names + [f'UserName={USER}'] if self.name_ == 'office' else names)

    def jobs(self):
        return glob.glob(f'{FOLDER}/printer/printed/{self.name_}-*.prn')

    def arrived(self):
        """The next job at the device."""
        for _ in range(600):
            new = [path for path in self.jobs() if path not in self.known]
            if new:
                self.known.add(new[0])
                with open(new[0], 'rb') as job:
                    return int(re.search(r'-(\d+)\.prn$', new[0]).group(1)), job.read()
            time.sleep(0.05)
        raise AssertionError('nothing arrives')

    def one(self):
        words, settings, (pjl, postScript) = self.draw()
        self.what = ' '.join(words)
        subprocess.run(['lp', '-d', self.name_, '-U', USER, '-t', TITLE, *words, DOCUMENT],
                       check=True, stdout=subprocess.DEVNULL)
        number, job = self.arrived()
        sections = sectionsOf(postScript)
        try:
            document = without(job, pjl, sections)
        except AssertionError as fault:
            raise AssertionError(f'job {number}: {fault}; settings {" ".join(settings)}') from fault
        # Apart from the commands, jobs with the same pages are the same.
        pages = ' '.join(sorted(word for word in words if word.startswith(
            ('PageSize', 'media', 'page-ranges', 'number-up', 'fit-to-page', 'ColorModel',
             'print-color-mode', 'cupsPrintQuality', 'print-quality', 'sides', 'Duplex'))))
        pages += next((word for word in words if word.startswith('cupsFinishingTemplate')), '')
        # The scheduler reverses the pages for a bin where they lie face up, and fills the
        # last sheet then.
        isFaceUp = 'OutputBin=FaceUp' in words or 'output-bin=face-up' in words
        isTwoSided = any('two-sided' in word or 'Tumble' in word for word in words)
        pages += ' reversed' if isFaceUp else ''
        copies = int(words[words.index('-n') + 1]) if '-n' in words else 1
        isOnePage = any(word in words for word in ('page-ranges=1', 'number-up=2'))
        isOnePage = isOnePage or 'cupsFinishingTemplate=Draft' in words
        wanted = (1 if isOnePage and not (isFaceUp and isTwoSided) else 2) * (1 if self.name_ == 'office' else copies)
        if document.count(b'\n%%Page: ') != wanted:
            raise AssertionError(f'job {number}: {document.count(b"%%Page: ")} pages in place of {wanted}')
        if self.name_ != 'office':
            pages += f' {copies}'
        known = self.documents.setdefault(pages, document)
        if document != known:
            at = next((i for i, (a, b) in enumerate(zip(document, known)) if a != b), -1)
            raise AssertionError(f'job {number}: the document differs at byte {at}: '
                                 f'{document[max(0, at - 40):at + 60]!r} instead of '
                                 f'{known[max(0, at - 40):at + 60]!r}')
        if self.leftCommand(document):
            raise AssertionError(f'job {number}: a command is left in the document: '
                                 f'{self.leftCommand(document).group()!r}')

    @staticmethod
    def leftCommand(document):
        """A command outside of the definitions of pstops, which has some for its own use."""
        rest = re.sub(rb'(?s)%%BeginProlog.*?%%EndProlog', b'', document)
        rest = re.sub(rb'(?m)^userdict/.*$', b'', rest)
        return re.search(rb'(?m)^.*(setpagedevice|setuserparams|BeginFeature).*$', rest)

    def run(self):
        for _ in range(self.count):
            self.what = ''
            try:
                self.one()
                self.good += 1
            except (AssertionError, RuntimeError, subprocess.CalledProcessError) as fault:
                self.faults.append(f'{self.name_}: lp {self.what}: {fault}')


def main():
    known = [entry for entry in queues.QUEUES if os.path.exists(f'{FOLDER}/{entry[0]}.xml')]
    share = [int(COUNT) // len(known)] * len(known)
    share[0] += int(COUNT) - sum(share)
    threads = [Queue(name, groups, defaults, count, SEED)
               for (name, _, groups, defaults), count in zip(known, share)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    faults = [fault for thread in threads for fault in thread.faults]
    print(*faults[:20], sep='\n', end='\n' if faults else '')
    for thread in threads:
        print(f'{thread.name_}: {thread.good} of {thread.count} jobs have exactly the commands of '
              f'emit ({thread.refused} random sets broke a rule and were drawn again)')
    return 1 if faults else 0


if __name__ == '__main__':
    sys.exit(main())
