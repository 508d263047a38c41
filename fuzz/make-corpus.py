#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes the seed inputs and dictionaries of the fuzz targets, one folder per target:

    make-corpus.py OUT_DIR

OUT_DIR/fuzz_themefile/   theme files: the sample theme and small variants
OUT_DIR/fuzz_package/     zip archives: plain, folders, names that point outside, a link, a password
OUT_DIR/fuzz_framestrip/  a selector byte and a tiny BMP, PNG, GIF or JPEG picture
OUT_DIR/fuzz_mixersettings/ skm.ini variants
OUT_DIR/fuzz_deflate64/   Deflate64 streams: stored, fixed and dynamic blocks, far matches, long runs
OUT_DIR/<target>.dict     libFuzzer dictionaries, where the format has words worth knowing

Everything is made here with the standard library, from the sample theme in samples/.
"""

import io
import os
import struct
import sys
import warnings
import zipfile
import zlib

SOURCE_DIR = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
SAMPLE_THEME = os.path.join(SOURCE_DIR, "samples", "StakkoSample.skt")


def write(path, data):
    with open(path, "wb") as out:
        out.write(data)


def write_all(folder, seeds):
    os.makedirs(folder, exist_ok=True)
    for name, data in seeds.items():
        write(os.path.join(folder, name), data)


def write_dict(path, words):
    lines = []
    for word in words:
        escaped = "".join(chr(b) if 0x20 <= b < 0x7F and b not in b'"\\' else "\\x%02X" % b for b in word)
        lines.append('"%s"' % escaped)
    write(path, ("\n".join(lines) + "\n").encode("ascii"))


# Theme files ------------------------------------------------------------------------------

def crlf(text):
    return text.replace("\n", "\r\n").encode("cp1252")


def theme_seeds():
    with open(SAMPLE_THEME, "rb") as f:
        sample = f.read()
    return {
        "sample.skt": sample,
        "sample-lf.skt": sample.replace(b"\r\n", b"\n"),
        "sample-utf8.skt": b"\xEF\xBB\xBF" + sample.decode("cp1252").replace("Stakko Sample", "Stakko \u00e9t\u00e9").encode("utf-8"),
        "type0.skt": crlf("[Theme Info]\nname=Zero\ndeveloper=Me\nversion=2\nthemetype=0\n"
                          "skinfile=skin.bmp\nskintransparency=1\nifacemain=main.jpg\nmidi=song.mid\n"
                          "rotate=rotate.wav\n"),
        "no-type.skt": crlf("[Theme Info]\nname=No Type\nifacemenu=menu.bmp\n"),
        "type1-no-package.skt": crlf("[Theme Info]\nthemetype=1\nbgfilename=bg\nbgextension=bmp\n"),
        "unknown-type.skt": crlf("[Theme Info]\nthemetype=2\n"),
        "type-text.skt": crlf("[theme info]\nTHEMETYPE= 1.0 \nresourcefile=missing.zip\n"),
        "empty-values.skt": crlf("[Theme Info]\nname=\nthemetype=0\nifacemain=\nifacemenutransparent=1\n"
                                 "colortitle=\nwintransparent=1\nmidi=\n"),
        "quotes.skt": crlf("[Theme Info]\nname=\"Quoted\"\ndeveloper=' spaced '\nthemetype=\"1\"\n"
                           "resourcefile='res.zip'\nexplodefilename=\"'twice'\"\ncolortitle=300,-1,x\n"),
        "repeated.skt": crlf("name=outside\n[Theme Info]\nname=first\nname=second\n[Other]\nthemetype=1\n"
                             "[Theme Info]\nthemetype=0\n;comment=1\n//skinfile=x\n"),
        "long-value.skt": crlf("[Theme Info]\nthemetype=0\nname=" + "n" * 300 + "\n"),
        "high-bytes.skt": b"[Theme Info]\r\nthemetype=0\r\nname=\x80\x81\x8d\x8f\x90\x9d\xff\r\n",
    }


def theme_words():
    words = [b"[Theme Info]", b"\r\n", b"\xEF\xBB\xBF", b"themetype=0", b"themetype=1", b"//", b"255,255,255"]
    with open(SAMPLE_THEME, "rb") as f:
        for line in f.read().split(b"\r\n"):
            if b"=" in line and not line.startswith(b"//"):
                words.append(line.split(b"=", 1)[0] + b"=")
    return words


# Zip archives -------------------------------------------------------------------------------

def zip_bytes(entries):
    """entries: (ZipInfo or name, data) pairs."""
    buffer = io.BytesIO()
    with warnings.catch_warnings(), zipfile.ZipFile(buffer, "w") as archive:
        warnings.simplefilter("ignore")  # a name twice is one of the cases
        for info, data in entries:
            archive.writestr(info, data)
    return buffer.getvalue()


def entry(name, compress=zipfile.ZIP_DEFLATED, mode=None):
    info = zipfile.ZipInfo(name, date_time=(2020, 1, 2, 3, 4, 6))
    info.compress_type = compress
    if mode is not None:
        info.create_system = 3  # Unix, so the mode below is read
        info.external_attr = mode << 16
    return info


class ZipCrypto:
    """The traditional PKWARE cipher, which libarchive reads; the standard library only decrypts."""

    def __init__(self, password):
        self.keys = [0x12345678, 0x23456789, 0x34567890]
        for byte in password:
            self.update(byte)

    @staticmethod
    def crc_step(crc, byte):
        return ~zlib.crc32(bytes([byte]), ~crc & 0xFFFFFFFF) & 0xFFFFFFFF

    def update(self, byte):
        k0, k1, k2 = self.keys
        k0 = self.crc_step(k0, byte)
        k1 = ((k1 + (k0 & 0xFF)) * 134775813 + 1) & 0xFFFFFFFF
        k2 = self.crc_step(k2, k1 >> 24)
        self.keys = [k0, k1, k2]

    def encrypt(self, data):
        out = bytearray()
        for byte in data:
            temp = (self.keys[2] | 2) & 0xFFFF
            out.append(byte ^ (((temp * (temp ^ 1)) >> 8) & 0xFF))
            self.update(byte)
        return bytes(out)


def encrypted_zip(name, data, password):
    """One stored entry under the traditional cipher, laid out by hand."""
    crc = zlib.crc32(data)
    cipher = ZipCrypto(password)
    body = cipher.encrypt(bytes(11) + bytes([crc >> 24]) + data)
    raw = name.encode("ascii")
    flags, method, time, date = 1, 0, 0x2083, 0x5022
    local = struct.pack("<IHHHHHIIIHH", 0x04034B50, 20, flags, method, time, date, crc,
                        len(body), len(data), len(raw), 0) + raw + body
    central = struct.pack("<IHHHHHHIIIHHHHHII", 0x02014B50, 20, 20, flags, method, time, date, crc,
                          len(body), len(data), len(raw), 0, 0, 0, 0, 0, 0) + raw
    end = struct.pack("<IHHHHIIH", 0x06054B50, 0, 0, 1, 1, len(central), len(local), 0)
    return local + central + end


def package_seeds():
    picture = bmp_bytes(4, 4, 24)
    return {
        "empty.zip": zip_bytes([]),
        "stored.zip": zip_bytes([(entry("bg1.bmp", zipfile.ZIP_STORED), picture)]),
        "deflated.zip": zip_bytes([(entry("readme.txt"), b"hello theme " * 20), (entry("bg1.bmp"), picture)]),
        "folders.zip": zip_bytes([(entry("sub/", mode=0o40755), b""), (entry("sub/deeper/a.txt"), b"a"),
                                  (entry("sub\\back.txt"), b"b"), (entry("./dot.txt"), b"c")]),
        "dotdot.zip": zip_bytes([(entry("../evil.txt"), b"x"), (entry("sub/../../evil2.txt"), b"y"),
                                 (entry("ok.txt"), b"z")]),
        "absolute.zip": zip_bytes([(entry("/tmp/abs.txt"), b"x"), (entry("C:/drive.txt"), b"y"),
                                   (entry("\\\\server\\share.txt"), b"z")]),
        "link.zip": zip_bytes([(entry("link", zipfile.ZIP_STORED, 0o120777), b"../../outside"),
                               (entry("link/through.txt"), b"x")]),
        "file-then-folder.zip": zip_bytes([(entry("x"), b"file"), (entry("x/y.txt"), b"below a file"),
                                           (entry("x"), b"again")]),
        "unicode.zip": zip_bytes([(entry("caf\u00e9.txt"), b"utf-8 flagged name")]),
        "bomb.zip": zip_bytes([(entry("zeros1.bin"), bytes(3 << 20)), (entry("zeros2.bin"), bytes(3 << 20))]),
        "encrypted.zip": encrypted_zip("secret.txt", b"only with the password", b"stakko"),
        "deflate64-dos-name.zip": deflate64_zip(b"Caf\x82.bmp", *far_match_stream()),
    }


# Deflate64 ---------------------------------------------------------------------------------

class BitWriter:
    def __init__(self):
        self.bytes = bytearray()
        self.bits = 0
        self.count = 0

    def put(self, value, n):
        """n bits of value, least significant first."""
        self.bits |= value << self.count
        self.count += n
        while self.count >= 8:
            self.bytes.append(self.bits & 0xFF)
            self.bits >>= 8
            self.count -= 8

    def code(self, value, n):
        """A Huffman code: most significant bit first."""
        self.put(int(format(value, "0%db" % n)[::-1], 2), n)

    def align(self):
        if self.count:
            self.put(0, 8 - self.count)

    def done(self):
        self.align()
        return bytes(self.bytes)


def fixed_symbol(w, symbol):
    if symbol < 144:
        w.code(0x30 + symbol, 8)
    elif symbol < 256:
        w.code(0x190 + symbol - 144, 9)
    elif symbol < 280:
        w.code(symbol - 256, 7)
    else:
        w.code(0xC0 + symbol - 280, 8)


LENGTHS = [(257 + i, base, extra) for i, (base, extra) in enumerate(
    [(3, 0), (4, 0), (5, 0), (6, 0), (7, 0), (8, 0), (9, 0), (10, 0), (11, 1), (13, 1), (15, 1), (17, 1), (19, 2),
     (23, 2), (27, 2), (31, 2), (35, 3), (43, 3), (51, 3), (59, 3), (67, 4), (83, 4), (99, 4), (115, 4), (131, 5),
     (163, 5), (195, 5), (227, 5), (3, 16)])]
DISTANCES = [(1, 0), (2, 0), (3, 0), (4, 0), (5, 1), (7, 1), (9, 2), (13, 2), (17, 3), (25, 3), (33, 4), (49, 4),
             (65, 5), (97, 5), (129, 6), (193, 6), (257, 7), (385, 7), (513, 8), (769, 8), (1025, 9), (1537, 9),
             (2049, 10), (3073, 10), (4097, 11), (6145, 11), (8193, 12), (12289, 12), (16385, 13), (24577, 13),
             (32769, 14), (49153, 14)]


def fixed_match(w, length, distance):
    """A match in a fixed block; long ones take code 285 and its 16 extra bits."""
    if length > 258:
        symbol, base, extra = LENGTHS[-1]
    else:
        symbol, base, extra = [row for row in LENGTHS[:-1] if row[1] <= length][-1]
    fixed_symbol(w, symbol)
    w.put(length - base, extra)
    code = max(i for i, (base, _) in enumerate(DISTANCES) if base <= distance)
    w.code(code, 5)
    w.put(distance - DISTANCES[code][0], DISTANCES[code][1])


def noise(size, seed):
    out = bytearray()
    for _ in range(size):
        seed = (seed * 1103515245 + 12345) & 0xFFFFFFFF
        out.append(seed >> 23 & 0xFF)
    return bytes(out)


def far_match_stream():
    """A stored block, then a fixed block copying from 40000 and 65536 bytes back: (stream, output)."""
    stored = noise(40000, 7)
    w = BitWriter()
    w.put(0, 1)
    w.put(0, 2)
    w.align()
    w.put(len(stored), 16)
    w.put(len(stored) ^ 0xFFFF, 16)
    stream = w.done() + stored
    w = BitWriter()
    w.put(1, 1)
    w.put(1, 2)
    output = bytearray(stored)
    for length, distance in ((300, 40000), (30000, 40000), (1000, 65536)):
        fixed_match(w, length, distance)
        for _ in range(length):
            output.append(output[-distance])
    fixed_symbol(w, 256)
    return stream + w.done(), bytes(output)


def long_run_stream():
    w = BitWriter()
    w.put(1, 1)
    w.put(1, 2)
    fixed_symbol(w, ord("a"))
    fixed_match(w, 65538, 1)
    fixed_symbol(w, 256)
    return w.done()


def deflate_stream(data):
    """Plain deflate: Deflate64 reads it alike while no match is 258 bytes long."""
    compressor = zlib.compressobj(9, zlib.DEFLATED, -15)
    return compressor.compress(data) + compressor.flush()


def deflate64_seeds():
    with open(SAMPLE_THEME, "rb") as f:
        sample = f.read()
    return {
        "far-matches.bin": far_match_stream()[0],
        "long-run.bin": long_run_stream(),
        "fixed-text.bin": deflate_stream(b"hello theme " * 20),
        "dynamic-theme.bin": deflate_stream(sample),
        "empty-stored.bin": bytes((1, 0, 0, 0xFF, 0xFF)),
    }


def deflate64_zip(name, stream, output):
    """One Deflate64 entry, as made on MS-DOS (the name in code page 437), without the UTF-8 flag."""
    crc = zlib.crc32(output)
    local = struct.pack("<IHHHHHIIIHH", 0x04034B50, 21, 0, 9, 0, 0x21, crc, len(stream), len(output), len(name), 0)
    central = struct.pack("<IHHHHHHIIIHHHHHII", 0x02014B50, 21, 21, 0, 9, 0, 0x21, crc, len(stream), len(output),
                          len(name), 0, 0, 0, 0, 0x20, 0)
    body = local + name + stream
    end = struct.pack("<IHHHHIIH", 0x06054B50, 0, 0, 1, 1, len(central) + len(name), len(body), 0)
    return body + central + name + end


# Pictures ---------------------------------------------------------------------------------

def pixel(x, y):
    return ((x * 37) & 0xFF, (y * 53) & 0xFF, ((x + y) * 11) & 0xFF)


def bmp_bytes(width, height, bits, top_down=False):
    palette = b""
    if bits == 8:
        palette = b"".join(bytes((i, 255 - i, (i * 7) & 0xFF, 0)) for i in range(256))
    elif bits == 1:
        palette = b"\x00\x00\x00\x00\xff\xff\xff\x00"
    stride = ((width * bits + 31) // 32) * 4
    rows = []
    for y in range(height):
        row = bytearray()
        if bits in (24, 32):
            for x in range(width):
                r, g, b = pixel(x, y)
                row += bytes((b, g, r)) + (b"\xff" if bits == 32 else b"")
        elif bits == 8:
            row += bytes((x * 5 + y) & 0xFF for x in range(width))
        else:
            for x0 in range(0, width, 8):
                row.append(sum(((x0 + i + y) & 1) << (7 - i) for i in range(8)))
        rows.append(bytes(row.ljust(stride, b"\0")))
    if not top_down:
        rows.reverse()
    data = b"".join(rows)
    offset = 14 + 40 + len(palette)
    header = struct.pack("<2sIHHI", b"BM", offset + len(data), 0, 0, offset)
    info = struct.pack("<IiiHHIIiiII", 40, width, -height if top_down else height, 1, bits, 0,
                       len(data), 2835, 2835, len(palette) // 4, 0)
    return header + info + palette + data


def png_chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def png_bytes(width, height, color_type, depth=8):
    rows = bytearray()
    for y in range(height):
        rows.append(0 if color_type == 3 else y % 5)  # the other filters turn indices into noise
        for x in range(width):
            r, g, b = pixel(x, y)
            if color_type == 0:
                rows += bytes((r,)) * (depth // 8)
            elif color_type == 2:
                rows += bytes((r, g, b)) if depth == 8 else bytes((r, r, g, g, b, b))
            elif color_type == 3:
                rows.append((x + y) & 3)
            elif color_type == 6:
                rows += bytes((r, g, b, (x * 16) & 0xFF))
    chunks = [png_chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, depth, color_type, 0, 0, 0))]
    if color_type == 3:
        chunks.append(png_chunk(b"PLTE", bytes((0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255))))
        chunks.append(png_chunk(b"tRNS", bytes((0, 128))))
    chunks.append(png_chunk(b"IDAT", zlib.compress(bytes(rows))))
    chunks.append(png_chunk(b"IEND", b""))
    return b"\x89PNG\r\n\x1a\n" + b"".join(chunks)


def lzw_codes(indices, min_size):
    """GIF's variable-width LZW: (code, width) pairs, a clear code first and when the table is full."""
    clear, end = 1 << min_size, (1 << min_size) + 1
    table = {(i,): i for i in range(clear)}
    width, next_code = min_size + 1, end + 1
    codes = [(clear, width)]
    current = ()
    for index in indices:
        grown = current + (index,)
        if grown in table:
            current = grown
            continue
        codes.append((table[current], width))
        if next_code == 4096:
            codes.append((clear, width))
            table = {(i,): i for i in range(clear)}
            width, next_code = min_size + 1, end + 1
        else:
            table[grown] = next_code
            next_code += 1
            if next_code > (1 << width) and width < 12:
                width += 1
        current = (index,)
    codes.append((table[current], width))
    codes.append((end, width))
    return codes


def gif_image(left, top, width, height, indices, min_size=2):
    bits, count, out = 0, 0, bytearray()
    for code, size in lzw_codes(indices, min_size):
        bits |= code << count
        count += size
        while count >= 8:
            out.append(bits & 0xFF)
            bits >>= 8
            count -= 8
    if count:
        out.append(bits & 0xFF)
    blocks = b"".join(bytes((len(out[i:i + 255]),)) + out[i:i + 255] for i in range(0, len(out), 255))
    return (struct.pack("<BHHHHB", 0x2C, left, top, width, height, 0) + bytes((min_size,)) + blocks + b"\0")


def gif_bytes(width, height, frames=1, partial=False):
    palette = bytes((0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255))
    out = b"GIF89a" + struct.pack("<HHBBB", width, height, 0x81, 0, 0) + palette
    if frames > 1:
        out += b"\x21\xFF\x0BNETSCAPE2.0\x03\x01\x00\x00\x00"
    for frame in range(frames):
        out += b"\x21\xF9\x04\x05\x0A\x00\x03\x00"  # graphic control: keep, 10 cs, colour 3 clear
        w, h = (width // 2, height // 2) if partial else (width, height)
        out += gif_image(frame, frame, w, h, [(x + y + frame) & 3 for y in range(h) for x in range(w)])
    return out + b"\x3B"


def huffman_table(counts, symbols):
    """Canonical codes of a JPEG Huffman table: symbol -> (code, length)."""
    codes, code, k = {}, 0, 0
    for length, count in enumerate(counts, start=1):
        for _ in range(count):
            codes[symbols[k]] = (code, length)
            code += 1
            k += 1
        code <<= 1
    return codes


DC_COUNTS = [0, 1, 5, 1, 1, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 0]  # the usual luminance DC table
DC_SYMBOLS = list(range(12))
AC_COUNTS = [1] + [0] * 15  # one symbol: end of block
AC_SYMBOLS = [0]


def jpeg_bytes(width, height, colours):
    """A baseline JPEG of flat 8 x 8 blocks, one colour per component, quantisation 1: the
    smallest thing libjpeg decodes, written without an encoder."""
    def segment(marker, data):
        return struct.pack(">BBH", 0xFF, marker, len(data) + 2) + data

    components = len(colours)
    dc = huffman_table(DC_COUNTS, DC_SYMBOLS)
    ac = huffman_table(AC_COUNTS, AC_SYMBOLS)
    bits = []

    def put(value, length):
        bits.extend((value >> (length - 1 - i)) & 1 for i in range(length))

    previous = [0] * components
    for _ in range(((width + 7) // 8) * ((height + 7) // 8)):
        for c, level in enumerate(colours):
            coefficient = (level - 128) * 8
            diff = coefficient - previous[c]
            previous[c] = coefficient
            size = abs(diff).bit_length()
            put(*dc[size])
            if size:
                put(diff if diff > 0 else diff + (1 << size) - 1, size)
            put(*ac[0])
    bits.extend([1] * (-len(bits) % 8))
    scan = bytearray()
    for i in range(0, len(bits), 8):
        byte = int("".join(map(str, bits[i:i + 8])), 2)
        scan += b"\xFF\x00" if byte == 0xFF else bytes((byte,))

    def table(kind, index, counts, symbols):
        return bytes(((kind << 4) | index,)) + bytes(counts) + bytes(symbols)

    frame = struct.pack(">BHHB", 8, height, width, components)
    frame += b"".join(bytes((c + 1, 0x11, 0)) for c in range(components))
    scan_header = bytes((components,)) + b"".join(bytes((c + 1, 0x00)) for c in range(components)) + b"\x00\x3F\x00"
    return (b"\xFF\xD8" + segment(0xE0, b"JFIF\0\x01\x01\x00\x00\x01\x00\x01\x00\x00")
            + segment(0xDB, b"\x00" + bytes([1] * 64)) + segment(0xC0, frame)
            + segment(0xC4, table(0, 0, DC_COUNTS, DC_SYMBOLS) + table(1, 0, AC_COUNTS, AC_SYMBOLS))
            + segment(0xDA, scan_header) + bytes(scan) + b"\xFF\xD9")


EXTENSIONS = {"bmp": 0, "jpg": 1, "png": 2, "gif": 3}


def selector(extension, element=0, fraction=False, cut=False):
    return bytes((EXTENSIONS[extension] | (element << 2) | (0x20 if fraction else 0) | (0x40 if cut else 0),))


def framestrip_seeds():
    pictures = {
        "bmp24": ("bmp", bmp_bytes(8, 8, 24)),
        "bmp24-topdown-odd": ("bmp", bmp_bytes(13, 5, 24, top_down=True)),
        "bmp32-wide": ("bmp", bmp_bytes(200, 2, 32)),
        "bmp8-topdown": ("bmp", bmp_bytes(16, 12, 8, top_down=True)),
        "bmp1": ("bmp", bmp_bytes(16, 4, 1)),
        "png-rgb": ("png", png_bytes(8, 8, 2)),
        "png-rgba": ("png", png_bytes(6, 20, 6)),
        "png-gray16": ("png", png_bytes(5, 5, 0, 16)),
        "png-palette": ("png", png_bytes(12, 3, 3)),
        "png-rgb16-tall": ("png", png_bytes(2, 400, 2, 16)),
        "gif": ("gif", gif_bytes(8, 8)),
        "gif-partial-frames": ("gif", gif_bytes(16, 16, frames=2, partial=True)),
        "jpeg-gray": ("jpg", jpeg_bytes(16, 8, [200])),
        "jpeg-colour": ("jpg", jpeg_bytes(24, 16, [90, 60, 200])),
    }
    seeds = {}
    for number, (name, (extension, data)) in enumerate(sorted(pictures.items())):
        element = number % 7
        seeds[name] = selector(extension, element) + data
        seeds[name + "-cut"] = selector(extension, (element + 3) % 7, fraction=True, cut=True) + data
    # The content decides the format, whatever the name says.
    seeds["png-named-bmp"] = selector("bmp", 2) + png_bytes(8, 8, 2)
    # A GIF whose header Qt cannot size but whose first frame decodes: the preview shows it,
    # so everything that asks for a frame's size must answer from the decode.
    seeds["gif-unsized"] = bytes((0x63,)) + bytes.fromhex(
        "47494638396108000808810000000000ff000000ff000000ff21f904050a0003002c0000000081000000"
        "0000ff000000ff000000ff21f904050a0003002c003b")
    return seeds


# skm.ini ----------------------------------------------------------------------------------

def config_seeds():
    def ini(frequency, channels, output, extra=""):
        return crlf("//Stakko Theme Maker Configuration\n \n[Sound Mixer]\nfrequency=%s\nnumchannels=%s\n"
                    "//0-NoSound,1-WinMM,2-DirectSound,3-A3D, #1 is recommended\noutput=%s\n%s"
                    % (frequency, channels, output, extra))
    return {
        "default.ini": ini(44100, 8, 1),
        "fractions.ini": ini("22050.5", "7.5", "2.5"),
        "exponent.ini": ini("4.41e4", "1e9", "3"),
        "negative.ini": ini("-1", "-2147483649", "0"),
        "huge.ini": ini("99999999999999999999", "2147483647", "4"),
        "quoted.ini": ini("\"48000\"", "' 16 '", " 02 "),
        "text.ini": ini("fast", "", "two"),
        "bom.ini": b"\xEF\xBB\xBF[sound mixer]\nFREQUENCY = 11025 \noutput\t=\t0\n",
        "missing.ini": crlf("[Sound Mixer]\n;frequency=1\n[Other]\noutput=2\n"),
        "twice.ini": crlf("[Sound Mixer]\nfrequency=1\n[Sound Mixer]\nfrequency=2\nnumchannels=3\n"),
        "long.ini": crlf("[Sound Mixer]\nfrequency=" + "1" * 300 + "\n"),
    }


CONFIG_WORDS = [b"[Sound Mixer]", b"frequency=", b"numchannels=", b"output=", b"\r\n", b"\xEF\xBB\xBF",
                b"e308", b"2147483648"]

ZIP_WORDS = [b"PK\x03\x04", b"PK\x01\x02", b"PK\x05\x06", b"PK\x06\x06", b"PK\x07\x08", b"../", b"\\",
             b"\x00\x00\x00\x00\xff\xff\xff\xff"]


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: make-corpus.py OUT_DIR")
    out = sys.argv[1]
    write_all(os.path.join(out, "fuzz_themefile"), theme_seeds())
    write_all(os.path.join(out, "fuzz_package"), package_seeds())
    write_all(os.path.join(out, "fuzz_framestrip"), framestrip_seeds())
    write_all(os.path.join(out, "fuzz_mixersettings"), config_seeds())
    write_all(os.path.join(out, "fuzz_deflate64"), deflate64_seeds())
    write_dict(os.path.join(out, "fuzz_themefile.dict"), theme_words())
    write_dict(os.path.join(out, "fuzz_mixersettings.dict"), CONFIG_WORDS)
    write_dict(os.path.join(out, "fuzz_package.dict"), ZIP_WORDS)


if __name__ == "__main__":
    main()
