"""A job at the device, byte for byte: what `driver-feature emit` writes, at the places
where docs/printing.md puts it, and the document.
"""
import re
import subprocess
import tempfile

EXIT = b'\x1b%-12345X'
PLACES = {'ExitServer': b'%%EndComments\n', 'Prolog': b'%%BeginProlog\n',
          'Setup': b'%%BeginSetup\n', 'PageSetup': b'%%BeginPageSetup\n'}


class Refused(Exception):
    """The description refuses the settings."""


class Emitter:
    def __init__(self, program, description, routines=None):
        self.command = [program]
        if routines:
            self.command += ['--callbacks', routines]
        self.command += ['emit', description]

    def texts(self, settings):
        """PJL and PostScript of the settings."""
        with tempfile.TemporaryDirectory() as folder:
            command = self.command + ['--to', f'pjl={folder}/pjl', '--to', f'ps={folder}/ps']
            for setting in settings:
                command += ['-o', setting]
            done = subprocess.run(command, capture_output=True, check=False)
            if done.returncode == 2:
                raise Refused(done.stderr.decode(errors='replace').strip())
            if done.returncode != 0:
                raise RuntimeError(done.stderr.decode(errors='replace'))
            with open(f'{folder}/pjl', 'rb') as pjl, open(f'{folder}/ps', 'rb') as postScript:
                return pjl.read(), postScript.read()


def sectionsOf(postScript):
    """The text for each place; what is in no section, and in any set-up, is set-up."""
    sections = dict.fromkeys(PLACES, b'')
    section = 'Setup'
    for line in postScript.splitlines(keepends=True):
        begin = re.match(rb'%DriverSection (\w+)', line)
        if begin:
            section = begin.group(1).decode()
            if section in ('DocumentSetup', 'AnySetup'):
                section = 'Setup'
        elif line.startswith(b'%EndDriverSection'):
            # The line end in front of it is of the comment.
            if sections[section].endswith(b'\n\n'):
                sections[section] = sections[section][:-1]
            section = 'Setup'
        else:
            sections[section] += line
    return {name: text if text.strip() else b'' for name, text in sections.items()}


def without(job, header, sections):
    """The document of the job, without the commands; fails where they are not."""
    if not job.startswith(header):
        at = next((i for i, (one, other) in enumerate(zip(job, header)) if one != other),
                  min(len(job), len(header)))
        raise AssertionError(f'the header differs at byte {at}: {job[max(0, at - 40):at + 60]!r} '
                             f'instead of {header[max(0, at - 40):at + 60]!r}')
    rest = job[len(header):]
    for name, text in sections.items():
        if not text:
            continue
        if not text.endswith(b'\n'):
            text += b'\n'
        place = PLACES[name]
        if rest.count(place) == 0:
            raise AssertionError(f'the job has no {place!r}')
        count = rest.count(place + text)
        if count != rest.count(place):
            after = rest[rest.index(place):][:len(place) + len(text) + 40]
            raise AssertionError(f'{name} differs: {after!r} instead of {text!r}')
        rest = rest.replace(place + text, place)
    return rest
