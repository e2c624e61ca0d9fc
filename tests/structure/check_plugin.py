#!/usr/bin/env python3
"""Reads a built plug-in: it exports its factory and nothing else, and needs host libraries and the runtime only.

usage: check_plugin.py [--permit NAME]... LIBRARY        exit code 1, with a line for each fault, when there is one

A library that --permit names may be needed as well: builds with sanitizers need the sanitizer's.
"""

import argparse
import re
import subprocess
import sys
from pathlib import Path

HOST_LIBRARIES = {"libZORStd", "libZORI18n", "libZOR", "libZORBridgeLib", "libZORManager"}
RUNTIME = {"libstdc++", "libgcc_s", "libm", "libc", "ld-linux-x86-64", "ld-linux-aarch64"}


def read_exports(library):
    """The names that the library defines in its dynamic symbol table."""
    lines = subprocess.run(["nm", "-D", "--defined-only", "--format=posix", library], check=True, capture_output=True,
                           text=True).stdout.splitlines()
    return [line.split()[0].split("@")[0] for line in lines if line.strip()]


def read_needed(library):
    """The names of the libraries that it asks the loader for."""
    text = subprocess.run(["readelf", "-dW", library], check=True, capture_output=True, text=True).stdout
    return re.findall(r"\(NEEDED\).*\[([^\]]+)\]", text)


def check_exports(exports, factory):
    if factory not in exports:
        yield f"does not export {factory}"
    for name in sorted(set(exports) - {factory}):
        yield f"exports {name} besides its factory"


def check_needed(needed, permitted):
    for name in needed:
        if name.split(".so")[0] not in permitted:
            yield f"needs {name}, which is neither a host library nor the C++ runtime"


def main(arguments):
    parser = argparse.ArgumentParser()
    parser.add_argument("--permit", action="append", default=[])
    parser.add_argument("library")
    options = parser.parse_args(arguments)
    factory = "get" + Path(options.library).name.removeprefix("lib").removesuffix(".so") + "Interface"
    needed = read_needed(options.library)
    faults = list(check_exports(read_exports(options.library), factory))
    faults += check_needed(needed, HOST_LIBRARIES | RUNTIME | set(options.permit))
    if not HOST_LIBRARIES & {name.split(".so")[0] for name in needed}:
        faults.append("needs no host library at all: is it a plug-in?")
    for fault in faults:
        print(f"{options.library} {fault}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
