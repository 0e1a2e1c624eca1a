#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a user would take instead, on the same photographs in one run: autocrop for the crops of
faces, the commands of libvips for writing the same rectangles. Called by script/bench with its own
Python; reads MORVA_CLI and MORVA_TEST_DATA. Cut-outs are compared in bench/matting."""

import collections
import concurrent.futures
import json
import math
import os
import pathlib
import resource
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

WIDTH, HEIGHT, QUALITY = 2400, 3000, 92  # the default preset's
CORES = os.cpu_count() or 1
# What autocrop does by itself, and faces about as large as the default preset's where the photo has room.
FACE_PERCENTS = 50, 25

# One photo after the other, as its command does; a folder of "-" for the rectangles alone.
AUTOCROP = f"""
import json, sys
from autocrop import Cropper
from PIL import Image
folder, percent, *photos = sys.argv[1:]
cropper = Cropper(width={WIDTH}, height={HEIGHT}, face_percent=int(percent), resize=folder != "-")
for number, photo in enumerate(photos):
    rect = None
    try:
        result = cropper.crop(photo)
        if result.image is not None:
            found = result.diagnostics.crop_rectangle
            rect = [found.x, found.y, found.width, found.height]
            if folder != "-":
                Image.fromarray(result.image).convert("RGB").save(
                    folder + "/" + str(number) + ".jpg", quality={QUALITY})
    except (OSError, ValueError) as error:
        print(error, file=sys.stderr)
    print(json.dumps([photo, rect]))
"""


class Timer:
    """Wall and processor time of the programs that ran inside."""

    def __enter__(self):
        self._start, self._used = time.monotonic(), self._children()
        return self

    def __exit__(self, *_):
        self.wall = time.monotonic() - self._start
        self.processor = self._children() - self._used

    @staticmethod
    def _children():
        used = resource.getrusage(resource.RUSAGE_CHILDREN)
        return used.ru_utime + used.ru_stime

    def text(self, photos):
        return f"{self.wall / photos:.3f} s a photo, {self.processor / photos:.3f} s of processor"


def output(*command, codes=(0,)):
    done = subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, text=True)
    if done.returncode not in codes:
        sys.exit(f"against.py: {command[0]} ended with {done.returncode}")
    return done.stdout


def morva(work, *arguments):
    return output(os.environ["MORVA_CLI"], "--quiet", "--data-dir", work / "data", "--cache-dir",
                  work / "cache", *arguments, codes=(0, 1))


def levelled(point, size, degrees):
    """A point of the photo in the frame turned about its centre, as a solution's rectangle is."""
    turn = math.radians(-degrees)
    x, y = point[0] - size[0] / 2, point[1] - size[1] / 2
    return (size[0] / 2 + x * math.cos(turn) - y * math.sin(turn),
            size[1] / 2 + x * math.sin(turn) + y * math.cos(turn))


def crops_of_morva(work, photos):
    """Per photo the rectangle with its turn, and how often each doubt was raised."""
    with Timer() as timer:
        lines = morva(work, "crop", *photos, "--out", work / "morva", "--json", "--force", "--jobs",
                      CORES).splitlines()
    crops, doubts = {}, collections.Counter()
    for line in map(json.loads, lines):
        solution = line.get("solution")
        if "output" not in line:
            continue
        corner, size = solution["rect"]
        crops[line["file"]] = (corner + size, solution["rotationDegrees"])
        doubts.update(solution["reasons"])
    return crops, doubts, timer


def crops_of_autocrop(folder, percent, photos):
    with Timer() as timer:
        lines = output(sys.executable, "-c", AUTOCROP, folder, percent, *photos).splitlines()
    return {photo: (rect, 0.0) for photo, rect in map(json.loads, lines) if rect}, timer


def place(point, crop, size):
    """Where a point of the photo lies in a crop, as shares of its width and height."""
    (left, top, width, height), turn = crop
    x, y = levelled(point, size, turn)
    return (x - left) / width, (y - top) / height


def is_whole(reference, crop):
    """Head top and chin lie inside; heads that the photo cuts itself are not asked for."""
    size = reference["width"], reference["height"]
    inside = (place(reference[point], crop, size)[1] for point in ("crown", "chin"))
    return all(0 <= y <= 1 for y in inside)


def has_sides(reference, crop):
    size = reference["width"], reference["height"]
    row = (reference["crown"][1] + reference["left_eye"][1]) / 2
    sides = (place((reference[side], row), crop, size)[0] for side in ("head_left", "head_right"))
    return all(0 <= x <= 1 for x in sides)


def face(reference, crop):
    """Eye line and face size as shares of the crop's height."""
    size = reference["width"], reference["height"]
    middle = [(a + b) / 2 for a, b in zip(reference["left_eye"], reference["right_eye"])]
    unit = math.dist(middle, reference["chin"]) / crop[0][3]
    return place(middle, crop, size)[1], unit


def print_quality(name, crops, references, both):
    """`both`: the photos that every program has a crop of."""
    asked = [r for r in references if r["path"] in crops and "crown_cut" not in r["flags"]]
    whole = [r for r in asked if is_whole(r, crops[r["path"]])]
    sided = [r for r in whole if has_sides(r, crops[r["path"]])]
    lost = [pathlib.Path(r["path"]).stem for r in asked if r not in whole]
    lines, units = zip(*(face(r, crops[r["path"]]) for r in references if r["path"] in both))
    spread = statistics.stdev(units) / statistics.mean(units)
    print(f"{name}: {len(whole)} of {len(asked)} heads whole from top to chin, {len(sided)} of them"
          f" with both sides; face size {spread:.1%} about its mean, eye line"
          f" {statistics.stdev(lines):.1%} of the height, on {len(units)} photos,"
          f" eyes to chin {statistics.mean(units):.3f} of it")
    if lost:
        print(f"  not whole: {', '.join(lost)}")


def compare_crops(work, data):
    photos = sorted(str(photo) for photo in (data / "portraits").iterdir())
    faceless = {photo for photo in photos if pathlib.Path(photo).name.startswith("noface")}
    references = json.loads((data / "references.json").read_text())
    for reference in references:
        reference["path"] = str(data / reference["file"])
    ours, doubts, our_time = crops_of_morva(work, photos)
    (work / "autocrop").mkdir()
    usual, wider = FACE_PERCENTS
    theirs, their_time = crops_of_autocrop(work / "autocrop", usual, photos)
    wide, _ = crops_of_autocrop("-", wider, photos)
    both = ours.keys() & theirs.keys() & wide.keys()
    for name, crops, timer in (("morva", ours, our_time), ("autocrop", theirs, their_time)):
        missed = [pathlib.Path(p).stem for p in photos if p not in crops and p not in faceless]
        print(f"{name}: {timer.text(len(photos))}; {len(faceless & crops.keys())} of"
              f" {len(faceless)} photos without a face cropped; {len(missed)} of"
              f" {len(photos) - len(faceless)} others without a crop ({', '.join(missed)})")
        print_quality(name, crops, references, both)
    print_quality(f"autocrop, face {wider} %", wide, references, both)
    print(f"morva, doubts about {len(ours)} crops: "
          + ", ".join(f"{count} {doubt}" for doubt, count in doubts.most_common()))
    return ours


def write_with_vips(photo, crop, size, work):
    """As in a shell: the rectangle, as far as the photo reaches, then the size of the print."""
    left, top, width, height = crop
    left, right = max(0, round(left)), min(size[0], round(left + width))
    top, bottom = max(0, round(top)), min(size[1], round(top + height))
    part = work / "vips" / (pathlib.Path(photo).stem + ".v")
    output("vips", "crop", photo, part, left, top, right - left, bottom - top)
    output("vipsthumbnail", part, "--size", f"{WIDTH}x{HEIGHT}!", "-o",
           f"{part.with_suffix('.jpg')}[Q={QUALITY}]")
    part.unlink()


def compare_exports(work, data, crops):
    """Writing alone: measured before, by a job of its own."""
    folder = data / "portraits"
    morva(work, "job", "import", folder)
    morva(work, "job", "crop", folder.name)
    morva(work, "job", "approve", folder.name, *(pathlib.Path(photo).name for photo in crops))
    with Timer() as ours:
        morva(work, "job", "export", folder.name, "--out", work / "job")
    written = {path.stem for path in (work / "job").rglob("*.jpg")}
    chosen = {photo: crop for photo, crop in crops.items() if pathlib.Path(photo).stem in written}
    sizes = {photo: tuple(int(output("vipsheader", "-f", side, photo))
                          for side in ("width", "height")) for photo in chosen}
    (work / "vips").mkdir()
    with Timer() as theirs, concurrent.futures.ThreadPoolExecutor(CORES) as pool:
        for done in [pool.submit(write_with_vips, photo, rect, sizes[photo], work)
                     for photo, (rect, _) in chosen.items()]:
            done.result()
    turned = sum(1 for _, turn in chosen.values() if turn)
    print(f"export: {len(chosen)} crops, {turned} of them turned by morva and upright by vips")
    print(f"morva: {ours.text(len(chosen))}")
    print(f"vips: {theirs.text(len(chosen))}; morva takes"
          f" {ours.processor / theirs.processor:.2f} of its processor time,"
          f" {ours.wall / theirs.wall:.2f} of its time")


def main():
    data = pathlib.Path(os.environ.get("MORVA_TEST_DATA", ""))
    if not (data / "references.json").is_file():
        print("against.py: skipped, MORVA_TEST_DATA names no folder of photographs")
        return
    work = pathlib.Path(tempfile.mkdtemp(prefix="morva-against-"))
    try:
        crops = compare_crops(work, data)
        if shutil.which("vipsthumbnail"):
            compare_exports(work, data, crops)
        else:
            print("export: skipped, libvips-tools is not installed")
    finally:
        shutil.rmtree(work)


main()
