#!/usr/bin/env python3
"""Makes the photos of this folder again, but for those that come from cameras (see README.md).

Needs Debian's imagemagick, libheif-examples and exiv2.
"""

import struct
import subprocess
from pathlib import Path

FOLDER = Path(__file__).resolve().parent

# Upright, the centre of every picture is four squares: red, green; blue, yellow. What a centred square crop
# takes away at the long ends is magenta.
QUADRANTS = ((220, 30, 30), (30, 180, 30)), ((30, 30, 220), (230, 220, 30))
CROPPED = (220, 30, 220)

BYTE, ASCII, SHORT, LONG, SRATIONAL = 1, 2, 3, 4, 10
SIZES = {BYTE: 1, ASCII: 1, SHORT: 2, LONG: 4, SRATIONAL: 8}


def run(*command):
    subprocess.run([str(part) for part in command], check=True)


def colour(x, y, width, height):
    """Of one pixel of a landscape picture."""
    margin = (width - height) // 2
    if not margin <= x < width - margin:
        return CROPPED
    return QUADRANTS[y >= height // 2][x >= width // 2]


def write_ppm(path, width, height):
    pixels = b"".join(bytes(colour(x, y, width, height)) for y in range(height) for x in range(width))
    path.write_bytes(b"P6 %d %d 255\n" % (width, height) + pixels)


def stored_turned(source, path):
    """As a camera held upright stores it: a turn of 90 degrees clockwise (orientation 6) shows it upright."""
    run("convert", source, "-rotate", "90", "-fill", "rgb(220,30,30)", "-draw", "rectangle 0,40 79,119",
        "-fill", "rgb(30,180,30)", "-draw", "rectangle 80,40 159,119",
        "-fill", "rgb(30,30,220)", "-draw", "rectangle 0,120 79,199",
        "-fill", "rgb(230,220,30)", "-draw", "rectangle 80,120 159,199",
        "-rotate", "270", "-sampling-factor", "4:4:4", "-quality", "85", path)


def directory(entries, start):
    """A TIFF directory at this offset, with the values that do not fit into it behind it."""
    table, values = struct.pack("<H", len(entries)), b""
    beyond = start + 2 + 12 * len(entries) + 4
    for tag, kind, value in sorted(entries):
        packed = value if isinstance(value, bytes) else struct.pack(
            "<%d%s" % (len(value), {BYTE: "B", SHORT: "H", LONG: "L", SRATIONAL: "l"}[kind]), *value)
        table += struct.pack("<HHL", tag, kind, len(packed) // SIZES[kind])
        if len(packed) <= 4:
            table += packed.ljust(4, b"\0")
        else:
            table += struct.pack("<L", beyond + len(values))
            values += packed + b"\0" * (len(packed) % 2)
    return table + struct.pack("<L", 0) + values


def mosaic(width, height):
    """Sensor values of 16 bits, linear in light, behind a red, green; green, blue filter."""
    filters = ((0, 1), (1, 2))
    return b"".join(struct.pack("<H", round(65535 * (colour(x, y, width, height)[filters[y % 2][x % 2]] / 255) ** 2.2))
                    for y in range(height) for x in range(width))


def raw_tags(width, height, offset, size):
    return [(254, LONG, [0]), (256, LONG, [width]), (257, LONG, [height]), (258, SHORT, [16]), (259, SHORT, [1]),
            (262, SHORT, [32803]), (273, LONG, [offset]), (277, SHORT, [1]), (278, LONG, [height]),
            (279, LONG, [size]), (284, SHORT, [1]), (33421, SHORT, [2, 2]), (33422, BYTE, [0, 1, 1, 2]),
            (50717, LONG, [65535])]


def camera_tags(orientation):
    matrix = [32406, -15372, -4986, -9689, 18758, 415, 557, -2040, 10570]  # from XYZ to sRGB, in 1/10000
    return [(271, ASCII, b"KelvaLR\0"), (272, ASCII, b"Sample\0"), (274, SHORT, [orientation]),
            (50706, BYTE, [1, 4, 0, 0]), (50707, BYTE, [1, 1, 0, 0]), (50708, ASCII, b"KelvaLR Sample\0"),
            (50721, SRATIONAL, [part for value in matrix for part in (value, 10000)]),
            (50728, SRATIONAL, [1, 1] * 3), (50778, SHORT, [21])]


def write_dng_with_preview(path, preview, orientation, preview_size):
    """The preview in the first directory, the sensor's values in a directory below it."""
    sensor = mosaic(48, 32)
    sub = 8
    raw = directory(raw_tags(48, 32, 0, len(sensor)), sub)
    data = sub + len(raw)
    raw = directory(raw_tags(48, 32, data, len(sensor)), sub)
    first = data + len(sensor)
    width, height = preview_size

    def main(offset):
        return directory(camera_tags(orientation) + [
            (254, LONG, [1]), (256, LONG, [width]), (257, LONG, [height]), (258, SHORT, [8, 8, 8]), (259, SHORT, [7]),
            (262, SHORT, [6]), (273, LONG, [offset]), (277, SHORT, [3]), (278, LONG, [height]),
            (279, LONG, [len(preview)]), (284, SHORT, [1]), (330, LONG, [sub])], first)

    picture = first + len(main(0))
    path.write_bytes(b"II*\0" + struct.pack("<L", first) + raw + sensor + main(picture) + preview)


def write_dng_without_preview(path):
    sensor = mosaic(120, 80)
    tags = camera_tags(1)
    data = 8 + len(directory(tags + raw_tags(120, 80, 0, len(sensor)), 8))
    path.write_bytes(b"II*\0" + struct.pack("<L", 8) + directory(tags + raw_tags(120, 80, data, len(sensor)), 8) + sensor)


def write_x3f(path, previews, rotation):
    """Previews only; laid out as the DP2 does it."""
    body = b"FOVb" + struct.pack("<L", 0x20003) + bytes(16) + struct.pack("<4L", 0, 240, 160, rotation)
    body = body.ljust(256, b"\0")
    entries = b""
    for jpeg, width, height in previews:
        section = b"SECi" + struct.pack("<6L", 0x20000, 2, 18, width, height, 0) + jpeg
        entries += struct.pack("<2L", len(body), len(section)) + b"IMA2"
        body += section.ljust((len(section) + 3) // 4 * 4, b"\0")
    start = len(body)
    path.write_bytes(body + b"SECd" + struct.pack("<2L", 0x20000, len(previews)) + entries + struct.pack("<L", start))


def main():
    ppm = FOLDER / "upright.ppm"
    write_ppm(ppm, 240, 160)
    turned, small = FOLDER / "turned.jpg", FOLDER / "small.jpg"
    jpeg = FOLDER / "upright.jpg"
    run("convert", ppm, "-sampling-factor", "4:4:4", "-quality", "85", jpeg)
    stored_turned(ppm, turned)
    run("convert", "-size", "60x40", "xc:gray", small)
    write_dng_with_preview(FOLDER / "orientation-6.dng", turned.read_bytes(), 6, (240, 160))
    write_dng_without_preview(FOLDER / "no-preview.dng")
    write_x3f(FOLDER / "previews.x3f", [(small.read_bytes(), 60, 40), (turned.read_bytes(), 240, 160)], 90)

    run("exiv2", "-M", "set Exif.Image.Orientation 6", turned)
    turned.rename(FOLDER / "orientation-6.jpg")
    run("convert", ppm, "-define", "png:exclude-chunks=gAMA,cHRM", FOLDER / "upright.png")
    run("convert", ppm, "-depth", "16", "-compress", "zip", FOLDER / "upright.tiff")
    run("exiv2", "-M", "set Exif.Image.Make KelvaLR", "-M", "set Exif.Image.Model Sample", FOLDER / "upright.tiff")
    run("heif-enc", "-q", "60", "-t", "96", "-o", FOLDER / "thumbnail.heic", jpeg)
    for scratch in (ppm, small):
        scratch.unlink()


main()
