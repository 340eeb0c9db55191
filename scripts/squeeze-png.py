#!/usr/bin/env python3
"""Makes the help's pictures smaller without changing a pixel.

The program saves its screen pictures as plain 24-bit PNG. A dialog seldom has more than 256
colours, and then an indexed PNG holds exactly the same picture in a third of the bytes; a
picture with more colours is packed again with better row filters. A file is rewritten only
if the new one is smaller, and only 8-bit RGB or fully opaque RGBA pictures without
interlacing are touched (that is what the program writes); anything else is left alone.

    python3 scripts/squeeze-png.py FILE.png...
"""
import struct
import sys
import zlib

SIGNATURE = b"\x89PNG\r\n\x1a\n"


def chunks(data):
    at = len(SIGNATURE)
    while at + 8 <= len(data):
        length = struct.unpack(">I", data[at:at + 4])[0]
        yield data[at + 4:at + 8], data[at + 8:at + 8 + length]
        at += 12 + length


def paeth(a, b, c):
    p = a + b - c
    pa, pb, pc = abs(p - a), abs(p - b), abs(p - c)
    if pa <= pb and pa <= pc:
        return a
    return b if pb <= pc else c


def unfilter(raw, width, height, bpp):
    stride = width * bpp
    rows, prev, at = [], bytearray(stride), 0
    for _ in range(height):
        kind, line = raw[at], bytearray(raw[at + 1:at + 1 + stride])
        at += 1 + stride
        for x in range(stride):
            a = line[x - bpp] if x >= bpp else 0
            b = prev[x]
            c = prev[x - bpp] if x >= bpp else 0
            if kind == 1:
                line[x] = (line[x] + a) & 255
            elif kind == 2:
                line[x] = (line[x] + b) & 255
            elif kind == 3:
                line[x] = (line[x] + ((a + b) >> 1)) & 255
            elif kind == 4:
                line[x] = (line[x] + paeth(a, b, c)) & 255
        rows.append(bytes(line))
        prev = line
    return rows


def filtered(line, prev, kind, bpp):
    out = bytearray([kind])
    for x in range(len(line)):
        a = line[x - bpp] if x >= bpp else 0
        b = prev[x]
        c = prev[x - bpp] if x >= bpp else 0
        predictor = (0, a, b, (a + b) >> 1, paeth(a, b, c))[kind]
        out.append((line[x] - predictor) & 255)
    return bytes(out)


def best_filters(lines, bpp):
    """Each row with the filter whose output looks smallest (the usual sum of distances)."""
    out, prev = [], bytes(len(lines[0]) if lines else 0)
    for line in lines:
        options = [filtered(line, prev, kind, bpp) for kind in range(5)]
        out.append(min(options, key=lambda o: sum(v if v < 128 else 256 - v for v in o[1:])))
        prev = line
    return out


def deflate(rows):
    packer = zlib.compressobj(9, zlib.DEFLATED, 15, 9)
    return packer.compress(b"".join(rows)) + packer.flush()


def chunk(kind, body):
    return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body) & 0xFFFFFFFF)


def squeeze(data):
    """The smallest lossless PNG of the picture in data, or None if it is not one we handle."""
    if not data.startswith(SIGNATURE):
        return None
    header, packed = None, b""
    for kind, body in chunks(data):
        if kind == b"IHDR":
            header = struct.unpack(">IIBBBBB", body)
        elif kind == b"IDAT":
            packed += body
    if not header:
        return None
    width, height, depth, colour, _, _, interlace = header
    if depth != 8 or colour not in (2, 6) or interlace != 0:
        return None
    bpp = 3 if colour == 2 else 4
    rows = unfilter(zlib.decompress(packed), width, height, bpp)
    if bpp == 4:
        if any(row[x] != 255 for row in rows for x in range(3, len(row), 4)):
            return None
        rows = [bytes(b for x in range(0, len(row), 4) for b in row[x:x + 3]) for row in rows]
    pixels = [[row[x:x + 3] for x in range(0, len(row), 3)] for row in rows]

    candidates = [chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
                  + chunk(b"IDAT", deflate(best_filters(rows, 3)))]
    counts = {}
    for line in pixels:
        for p in line:
            counts[p] = counts.get(p, 0) + 1
    if len(counts) <= 256:
        palette = sorted(counts, key=lambda p: -counts[p])
        index = {p: i for i, p in enumerate(palette)}
        lines = [bytes(index[p] for p in line) for line in pixels]
        head = chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 3, 0, 0, 0)) + chunk(b"PLTE", b"".join(palette))
        candidates.append(head + chunk(b"IDAT", deflate([b"\0" + line for line in lines])))
        candidates.append(head + chunk(b"IDAT", deflate(best_filters(lines, 1))))
    return SIGNATURE + min(candidates, key=len) + chunk(b"IEND", b"")


def main(files):
    for name in files:
        with open(name, "rb") as f:
            data = f.read()
        smaller = squeeze(data)
        if smaller and len(smaller) < len(data):
            with open(name, "wb") as f:
                f.write(smaller)
        print("%s %d -> %d bytes" % (name, len(data), len(smaller) if smaller and len(smaller) < len(data) else len(data)))


if __name__ == "__main__":
    main(sys.argv[1:])
