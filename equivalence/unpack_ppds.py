"""Writes the PPDs of unpacked packages into a folder, each distinct one once.

usage: unpack_ppds.py FOLDER PACKAGE...

A package's driver program, FOLDER/unpacked/PACKAGE/usr/lib/cups/driver/PACKAGE,
is a Python script with an archive in it: one compressed text with all PPDs, and
a table that says where each one is. The program writes one PPD per call and
decompresses the archive every time, so the archive is read here instead, once.

FOLDER/ppds/PACKAGE/NAME receives the PPDs, and FOLDER/ppds.txt one line for
each, "SHA256 SIZE PACKAGE/NAME". A PPD that equals an earlier one, in the order
of the packages and then of the names, is left out.
"""

import base64
import hashlib
import importlib.machinery
import importlib.util
import json
import lzma
import pathlib
import shutil
import sys

PREFIXES = ("0/ppd/foomatic-ppd/", "0/ppd/hplip/", "0/ppd/openprinting/", "0/ppd/", "0/")


def load_driver(path):
    """The driver program as a module; its own main is not run."""
    loader = importlib.machinery.SourceFileLoader("driver", str(path))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("driver", loader))
    loader.exec_module(module)
    return module


def short_name(name):
    """The name in the archive without the folders that all of them share."""
    for prefix in PREFIXES:
        if name.startswith(prefix):
            return name[len(prefix):]
    return name


def read_ppds(path):
    """Yields (name, bytes) in the order of the names."""
    module = load_driver(path)
    table = json.loads(lzma.decompress(base64.b64decode(module.ppds_compressed_b64)))
    archive = lzma.decompress(base64.b64decode(table.pop("ARCHIVE")))
    for name in sorted(table):
        start, length = table[name][0], table[name][1]
        content = archive[start:start + length]
        if len(content) != length:
            sys.exit(f"corpus: {path}: the archive ends within {name}")
        yield short_name(name), content


def safe_target(root, name):
    """The file for a PPD; ends the program when the name leads out of the folder."""
    target = (root / name).resolve()
    if root.resolve() not in target.parents:
        sys.exit(f"corpus: refused the name {name!r}, which leads out of the folder")
    return target


class Progress:
    """One line that is rewritten on a terminal; plain lines elsewhere."""

    def __init__(self, package):
        self.package = package
        self.count = 0
        self.terminal = sys.stdout.isatty()

    def step(self):
        self.count += 1
        if self.terminal and self.count % 100 == 0:
            print(f"\rcorpus: {self.package}: {self.count} PPDs", end="", flush=True)

    def finish(self, distinct):
        start = "\r" if self.terminal else ""
        print(f"{start}corpus: {self.package}: {self.count} PPDs, {distinct} of them new")


def main():
    folder = pathlib.Path(sys.argv[1])
    root = folder / "ppds"
    if root.exists():
        shutil.rmtree(root)
    root.mkdir(parents=True)
    seen = set()
    lines = []
    for package in sys.argv[2:]:
        progress = Progress(package)
        before = len(seen)
        driver = folder / "unpacked" / package / "usr/lib/cups/driver" / package
        for name, content in read_ppds(driver):
            progress.step()
            digest = hashlib.sha256(content).hexdigest()
            if digest in seen:
                continue
            seen.add(digest)
            target = safe_target(root, f"{package}/{name}")
            if target.exists():
                sys.exit(f"corpus: two PPDs have the name {package}/{name}")
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_bytes(content)
            lines.append(f"{digest} {len(content)} {package}/{name}\n")
        progress.finish(len(seen) - before)
    (folder / "ppds.txt").write_text("".join(lines), encoding="utf-8")
    print(f"corpus: {len(lines)} distinct PPDs in {root}")


main()
