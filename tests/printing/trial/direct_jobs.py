#!/usr/bin/env python3
"""Sends jobs with random attributes to printers with ipptool, as clients do that have no
queue of options in the way, and compares the whole job at the device, byte for byte, with
what `driver-feature emit` writes for the same settings.

usage: direct_jobs.py PROGRAM ROUTINES FOLDER COUNT SEED PORT

The descriptions are FOLDER/NAME.xml, and the jobs arrive at FOLDER/printer/printed/.
"""
import os
import random
import re
import subprocess
import sys
import time

from whole_job import EXIT, Emitter, Refused, sectionsOf, without

PROGRAM, ROUTINES, FOLDER, COUNT, SEED, PORT = sys.argv[1:7]
DOCUMENT = os.path.join(os.path.dirname(__file__), 'pages.ps')

HEAD = '''{
NAME "a job"
OPERATION Print-Job
GROUP operation-attributes-tag
ATTR charset attributes-charset utf-8
ATTR naturalLanguage attributes-natural-language en
ATTR uri printer-uri $uri
ATTR name requesting-user-name jane
ATTR name job-name trial
ATTR mimeMediaType document-format application/postscript
ATTR boolean ipp-attribute-fidelity true
%s
GROUP job-attributes-tag
%s
FILE $filename
STATUS successful-ok
EXPECT job-id DISPLAY-MATCH job-id
}
'''


def words(attribute, kind, text):
    """Values of an attribute, each with its settings: "VALUE FEATURE=CHOICE..."."""
    return [(f'ATTR {kind} {attribute} {value}', settings)
            for value, *settings in (line.split() for line in text.strip().splitlines())]


def mediaCol(settings, size=None, **members):
    lines = [f'MEMBER keyword media-{name} {value}' for name, value in members.items()]
    if size:
        lines.append('MEMBER collection media-size { MEMBER integer x-dimension %d '
                     'MEMBER integer y-dimension %d }' % size)
    return f'ATTR collection media-col {{ {" ".join(lines)} }}', settings.split()


OFFICE = [
    words('media', 'keyword', '''
        iso_a3_297x420mm PageSize=A3
        iso_a4_210x297mm PageSize=A4
        iso_c5_162x229mm PageSize=EnvC5
        iso_dl_110x220mm PageSize=EnvDL
        na_executive_7.25x10.5in PageSize=Executive
        na_legal_8.5x14in PageSize=Legal
        custom_card_100x200mm PageSize=Custom CustomPageWidth=100 CustomPageHeight=200'''),
    words('sides', 'keyword', '''
        one-sided Duplex=OneSided
        two-sided-long-edge Duplex=LongEdge
        two-sided-short-edge Duplex=ShortEdge'''),
    words('print-color-mode', 'keyword', '''
        color ColorMode=Color
        monochrome ColorMode=Grayscale'''),
    words('printer-resolution', 'resolution', '''
        600dpi Resolution=600dpi
        1200dpi Resolution=1200dpi'''),
    words('output-bin', 'keyword', '''
        top OutputBin=Top
        face-up OutputBin=FaceUp
        stacker-1 OutputBin=Stacker'''),
    words('finishings', 'enum', '''
        3 Staple=None Punch=None Fold=None JobOffset=Off
        14 Staple=None Punch=None Fold=None JobOffset=On
        20 Staple=TopLeft Punch=None Fold=None JobOffset=Off
        28,74 Staple=DualLeft Punch=TwoHoles Fold=None JobOffset=Off
        78,93 Staple=None Punch=ThreeHoles Fold=Half JobOffset=Off
        82,96,22 Staple=TopRight Punch=FourHoles Fold=Letter JobOffset=Off'''),
    words('copies', 'integer', '1 Copies=1\n7 Copies=7\n999 Copies=999'),
    words('multiple-document-handling', 'keyword', '''
        separate-documents-collated-copies Collate=On
        separate-documents-uncollated-copies Collate=Off'''),
    words('orientation-requested', 'enum', '3 Orientation=Portrait\n4 Orientation=Landscape'),
    words('x-toner-save', 'boolean', 'true EconoMode=On\nfalse EconoMode=Off'),
    words('x-edge-smoothing', 'keyword', '''
        off EdgeSmoothing=Off
        light EdgeSmoothing=Light
        dark EdgeSmoothing=Dark'''),
    words('x-gamma', 'name', '0.5 Gamma=0.5\n1.25 Gamma=1.25\n3 Gamma=3'),
    words('x-gutter-margin', 'name', '0 GutterMargin=0\n25.4 GutterMargin=25.4'),
    words('x-mirror-image', 'boolean', 'true MirrorImage=On\nfalse MirrorImage=Off'),
    words('print-darkness', 'integer', '1 PrintDensity=1\n5 PrintDensity=5'),
    words('x-wait-timeout', 'integer', '5 WaitTimeout=5\n300 WaitTimeout=300'),
    words('x-jam-recovery', 'boolean', 'true JamRecovery=On\nfalse JamRecovery=Off'),
    words('job-accounting-id', 'name', 'sales-2 AccountCode=sales-2\n0123456789abcdef AccountCode=0123456789abcdef'),
    words('x-watermark', 'keyword', '''
        draft Watermark=Draft
        confidential Watermark=Confidential
        none Watermark=None'''),
    words('job-hold-until', 'keyword', '''
        no-hold HoldJob=Off
        proof HoldJob=Proof
        stored HoldJob=Store'''),
]
LABELS = [
    words('media', 'keyword', '''
        custom_104x150mm_104x150mm RollWidth=104mm LabelLength=150
        custom_roll_58x90mm RollWidth=58mm LabelLength=90'''),
    [mediaCol('PrintMethod=ThermalTransfer', type='labels-thermal-transfer'),
     mediaCol('PrintMethod=DirectThermal', type='labels-thermal-direct')],
    words('printer-resolution', 'resolution', '''
        203dpi Resolution=203dpi
        300dpi Resolution=300dpi'''),
    words('orientation-requested', 'enum', '3 Rotation=0\n4 Rotation=90\n5 Rotation=270\n6 Rotation=180'),
    words('copies', 'integer', '1 Copies=1\n12 Copies=12'),
    words('print-darkness', 'integer', '-15 Darkness=-15\n15 Darkness=15'),
    words('x-speed', 'name', '1 Speed=1\n2.5 Speed=2.5\n6 Speed=6'),
    words('cut', 'keyword', '''
        none Cutter=Off
        page Cutter=EveryLabel
        set Cutter=EverySet
        job Cutter=EndOfJob'''),
    words('feed', 'keyword', 'none Feed=Off\npage Feed=EveryLabel\njob Feed=EndOfJob'),
    words('feed-distance', 'name', '0 FeedDistance=0\n12.5 FeedDistance=12.5\n50 FeedDistance=50'),
    words('x-media-tracking', 'keyword', '''
        continuous MediaTracking=Continuous
        gap MediaTracking=Gap
        mark MediaTracking=BlackMark'''),
    words('x-gap-length', 'name', '0 GapLength=0\n10 GapLength=10'),
    words('x-negative', 'boolean', 'true Negative=On\nfalse Negative=Off'),
    words('x-peel-off', 'boolean', 'true PeelOff=On\nfalse PeelOff=Off'),
    words('x-tear-off-position', 'integer', '-120 TearOffPosition=-120\n120 TearOffPosition=120'),
]
FLOOR = [
    [mediaCol('PageSize=A3 InputSlot=Tray2', size=(29700, 42000), source='tray-2'),
     mediaCol('PageSize=Letter MediaType=Labels', size=(21590, 27940), type='labels'),
     mediaCol('InputSlot=Manual', source='manual'),
     mediaCol('MediaType=Recycled InputSlot=MPTray', type='stationery-recycled',
              source='by-pass-tray')],
    words('sides', 'keyword', '''
        one-sided Duplex=None
        two-sided-long-edge Duplex=DuplexNoTumble
        two-sided-short-edge Duplex=DuplexTumble'''),
    words('print-color-mode', 'keyword', 'color ColorModel=CMYK\nmonochrome ColorModel=Gray'),
    words('printer-resolution', 'resolution', '600dpi Resolution=600dpi\n1200dpi Resolution=1200dpi'),
    words('print-quality', 'enum', '''
        3 cupsPrintQuality=Draft
        4 cupsPrintQuality=Normal
        5 cupsPrintQuality=High'''),
    words('output-bin', 'keyword', 'top OutputBin=Upper\nbottom OutputBin=Lower\nface-up OutputBin=FaceUp'),
    words('finishings', 'enum', '''
        3 StapleLocation=None HolePunch=Off
        20,74 StapleLocation=UpperLeft HolePunch=2Hole
        28 StapleLocation=DualLeft HolePunch=Off
        78 StapleLocation=None HolePunch=3Hole'''),
    words('x-toner-save', 'keyword', 'on TonerSave=On\noff TonerSave=Off'),
    words('x-jcl-hold', 'keyword', 'on JCLHold=On\noff JCLHold=Off'),
]
TABLES = {'office': OFFICE, 'labels': LABELS, 'floor': FLOOR}
# What ends each printer's jobs.
ENDS = {'office': EXIT, 'labels': EXIT,
        'floor': EXIT + b'@PJL EOJ\n' + EXIT}


class Printer:
    def __init__(self, name, seed):
        self.name = name
        self.random = random.Random(f'{seed} {name}')
        self.emitter = Emitter(PROGRAM, f'{FOLDER}/{name}.xml', None if name == 'floor' else ROUTINES)
        self.usual = {'office': ['JobName=trial', 'UserName=jane'], 'labels': ['JobName=trial']}.get(name, [])

    def draw(self):
        while True:
            chosen = [self.random.choice(group) for group in TABLES[self.name]
                      if self.random.random() < 0.5]
            self.random.shuffle(chosen)
            settings = [setting for _, ofLine in chosen for setting in ofLine]
            operation = []
            if any(setting == 'HoldJob=Proof' for setting in settings) and self.name == 'office':
                # Private jobs with a PIN.
                settings = [one for one in settings if one != 'HoldJob=Proof']
                chosen = [one for one in chosen if 'HoldJob=Proof' not in one[1]]
                operation = ['ATTR octetString job-password 1234']
                settings += ['HoldJob=Private', 'HoldPin=1234']
            try:
                return operation, [line for line, _ in chosen], settings, \
                    self.emitter.texts(self.usual + settings)
            except Refused:
                continue

    def send(self, operation, lines):
        path = f'{FOLDER}/{self.name}.test'
        with open(path, 'w', encoding='utf-8') as test:
            test.write(HEAD % ('\n'.join(operation), '\n'.join(lines)))
        done = subprocess.run(['ipptool', '-tv', '-f', DOCUMENT,
                               f'ipp://localhost:{PORT}/ipp/print/{self.name}', path],
                              capture_output=True, text=True, check=False)
        number = re.search(r'job-id \(integer\) = (\d+)', done.stdout)
        if '[FAIL]' in done.stdout or not number:
            raise AssertionError(f'it is not accepted: {done.stdout[done.stdout.find("[FAIL]"):]}')
        return int(number.group(1))

    def arrived(self, number):
        path = f'{FOLDER}/printer/printed/{self.name}-{number}.prn'
        for _ in range(400):
            if os.path.exists(path):
                with open(path, 'rb') as job:
                    return job.read()
            time.sleep(0.02)
        raise AssertionError(f'job {number} does not arrive')

    def one(self):
        operation, lines, settings, (pjl, postScript) = self.draw()
        try:
            job = self.arrived(self.send(operation, lines))
            document = without(job, pjl, sectionsOf(postScript))
            with open(DOCUMENT, 'rb') as source:
                wanted = source.read() + (ENDS[self.name] if pjl else b'')
            if document != wanted:
                raise AssertionError(f'the document is {document!r} instead of {wanted!r}')
        except AssertionError as fault:
            return f'{self.name}: {"; ".join(operation + lines)}: {fault}; settings {" ".join(settings)}'
        return None


def main():
    printers = [Printer(name, SEED) for name in TABLES]
    faults = []
    for i in range(int(COUNT)):
        fault = printers[i % len(printers)].one()
        if fault:
            faults.append(fault)
            print(fault)
    print(f'{int(COUNT) - len(faults)} of {COUNT} jobs sent without a queue are those of emit, byte for byte')
    return 1 if faults else 0


if __name__ == '__main__':
    sys.exit(main())
