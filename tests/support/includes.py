"""Which of the project's files a source includes."""

import pathlib
import re

_INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"')
# Where an include is looked for after the folder of its own source.
_ROOTS = tuple(map(pathlib.Path, ("library", ".", "platform/common_api", "platform/xml_parser")))


def project_includes(root, source):
    """The number of each line that includes a file of the project, and that file.
    Paths are from the project's root."""
    for number, line in enumerate((root / source).read_text(errors="replace").splitlines(), 1):
        match = _INCLUDE.match(line)
        if not match:
            continue
        for folder in (source.parent, *_ROOTS):
            if (root / folder / match[1]).is_file():
                yield number, folder / match[1]
                break
