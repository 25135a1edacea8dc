"""Builds and runs the program at the head of each page in docs/languages, as a reader would.

    bindings/scenarios/documented.py [--build DIRECTORY]
"""

from __future__ import annotations

import argparse
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from languages import BINDINGS, JNA, LANGUAGES

REPOSITORY = BINDINGS.parent
PAGES = REPOSITORY / "docs" / "languages"
PATIENCE = 300

# The page, the name under which a reader saves its program, and how it is built and run. {work} has the built bindings,
# {build} the library, {bindings} the sources.
PROGRAMS = {
    "python": ("capture.py", "PYTHONPATH={bindings}/python /usr/bin/python3 capture.py"),
    "java": (
        "Capture.java",
        f"javac -cp {{work}}/java Capture.java && java -cp {{work}}/java:{JNA}:. Capture",
    ),
    "csharp": (
        "Capture.cs",
        "cp {work}/Korvane.Signpad.dll . && mcs -r:Korvane.Signpad.dll Capture.cs && mono Capture.exe",
    ),
    "node": (
        "capture.mjs",
        "mkdir -p node_modules/@kvsignpad && ln -s {bindings}/node node_modules/@kvsignpad/node && node capture.mjs",
    ),
    "cpp": (
        "capture.cpp",
        "g++ -std=c++17 capture.cpp -I {repository}/kvsignpadsdk -L {build}/kvsignpadsdk -lkvsignpadsdk -pthread"
        " -o capture && ./capture",
    ),
    "go": (
        "capture.go",
        'CGO_CFLAGS="-I{repository}/kvsignpadsdk" CGO_LDFLAGS="-L{build}/kvsignpadsdk" GOCACHE={work}/go GOFLAGS=-mod=mod'
        " go build capture.go && ./capture",
    ),
    "rust": (
        "capture.rs",
        "bindgen {repository}/kvsignpadsdk/kvsignpadsdk_global.h --no-layout-tests --allowlist-file '.*kvsignpadsdk.*'"
        " -o bindings.rs && /usr/bin/rustc -L {build}/kvsignpadsdk -l kvsignpadsdk capture.rs && ./capture",
    ),
}


def program(language: str, file: str) -> str:
    """The page's first listing; for Go and Rust the file that the page names."""
    listing = re.search(r"```\w+\n(.*?)```", (PAGES / f"{language}.md").read_text(encoding="utf-8"), re.DOTALL)
    return listing.group(1) if listing else (BINDINGS / language / file).read_text(encoding="utf-8")


def run(language: str, build: Path, work: Path) -> str | None:
    """What went wrong, or nothing."""
    file, command = PROGRAMS[language]
    with tempfile.TemporaryDirectory(dir=work) as place:
        Path(place, file).write_text(program(language, file), encoding="utf-8")
        shutil.copy(build / "simulator" / "libkvsignpaddrv.so", place)
        environment = {
            **os.environ,
            "LC_ALL": "C.UTF-8",
            "LD_LIBRARY_PATH": str(build / "kvsignpadsdk"),
            "KVSIM_SPEED": "20",
        }
        places = {"work": work, "build": build, "bindings": BINDINGS, "repository": REPOSITORY}
        done = subprocess.run(
            ["sh", "-ec", command.format(**places)],
            cwd=place, env=environment, capture_output=True, text=True, timeout=PATIENCE, check=False,
        )
        said = f"{done.stdout}{done.stderr}"
        if done.returncode != 0 or "763 points" not in done.stdout:
            return f"exit code {done.returncode}: {said}"
        picture = Path(place, "signature.png")
        if not picture.exists() or not picture.read_bytes().startswith(b"\x89PNG"):
            return f"it wrote no signature.png: {said}"
    return None


def main() -> int:
    options = argparse.ArgumentParser(description="Runs the documented program of each language.")
    options.add_argument("--build", type=Path, default=REPOSITORY / "build" / "release")
    build = options.parse_args().build.resolve()
    missing = {page.stem for page in PAGES.glob("*.md")} ^ set(PROGRAMS)
    failed = len(missing)
    if missing:
        print(f"FAIL  pages without a program here, or programs without a page: {sorted(missing)}")
    with tempfile.TemporaryDirectory(prefix="kv-documented-") as work:
        for language in PROGRAMS:
            if language in LANGUAGES:
                LANGUAGES[language].build(Path(work), build / "kvsignpadsdk")
            trouble = run(language, build, Path(work))
            failed += trouble is not None
            print(f"ok    {language}" if trouble is None else f"FAIL  {language}: {trouble}", flush=True)
    print(f"{len(PROGRAMS) - failed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
