#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Draws the editor's small icons (16 px plus an @2x variant). The application icon is drawn
once in dist/icons/app.svg and rendered at build time.

They are stored as the editor's raw pictures (rawpicture.h: width and height, then rows of
premultiplied RGBA): the editor wraps them in images without decoding anything, which keeps
image readers (and their plugin scan) out of start-up.

Standard library only, so anyone can regenerate them: python3 make-icons.py
Shapes are given on a 16 x 16 grid and rendered with 4 x 4 supersampling.
"""
import os
import struct

HERE = os.path.dirname(os.path.abspath(__file__))
OUT = os.path.join(HERE, "icons")
SS = 4  # samples per pixel and axis


def rgba(hexcolor, alpha=255):
    h = hexcolor.lstrip("#")
    return (int(h[0:2], 16), int(h[2:4], 16), int(h[4:6], 16), alpha)


class Canvas:
    def __init__(self, size):
        self.size = size
        self.n = size * SS
        self.scale = self.n / 16.0
        self.px = [(0, 0, 0, 0)] * (self.n * self.n)

    def _fill(self, inside, bbox, color):
        x0, y0, x1, y1 = (max(0, int(v * self.scale)) for v in bbox)
        x1 = min(self.n, x1 + 1)
        y1 = min(self.n, y1 + 1)
        for y in range(y0, y1):
            fy = (y + 0.5) / self.scale
            row = y * self.n
            for x in range(x0, x1):
                if inside((x + 0.5) / self.scale, fy):
                    self.px[row + x] = color

    def rect(self, x0, y0, x1, y1, color):
        self._fill(lambda x, y: x0 <= x < x1 and y0 <= y < y1, (x0, y0, x1, y1), color)

    def circle(self, cx, cy, r, color, inner=0.0):
        def inside(x, y):
            d = (x - cx) ** 2 + (y - cy) ** 2
            return inner * inner <= d <= r * r
        self._fill(inside, (cx - r, cy - r, cx + r, cy + r), color)

    def polygon(self, pts, color):
        def inside(x, y):
            hit = False
            j = len(pts) - 1
            for i in range(len(pts)):
                xi, yi = pts[i]
                xj, yj = pts[j]
                if (yi > y) != (yj > y) and x < (xj - xi) * (y - yi) / (yj - yi) + xi:
                    hit = not hit
                j = i
            return hit
        xs = [p[0] for p in pts]
        ys = [p[1] for p in pts]
        self._fill(inside, (min(xs), min(ys), max(xs), max(ys)), color)

    def line(self, x0, y0, x1, y1, width, color):
        dx, dy = x1 - x0, y1 - y0
        length = (dx * dx + dy * dy) ** 0.5
        nx, ny = -dy / length * width / 2, dx / length * width / 2
        self.polygon([(x0 + nx, y0 + ny), (x1 + nx, y1 + ny), (x1 - nx, y1 - ny), (x0 - nx, y0 - ny)], color)

    def block(self, x, y, s, color):
        """A bevelled game block: light top-left edge, dark bottom-right edge."""
        r, g, b, a = color
        light = (min(255, r + 90), min(255, g + 90), min(255, b + 90), a)
        dark = (r // 2, g // 2, b // 2, a)
        e = s / 6.0
        self.rect(x, y, x + s, y + s, dark)
        self.rect(x, y, x + s - e, y + s - e, light)
        self.rect(x + e, y + e, x + s - e, y + s - e, color)

    def raw(self):
        out = bytearray(struct.pack("<II", self.size, self.size))
        for y in range(self.size):
            for x in range(self.size):
                acc = [0, 0, 0, 0]
                for sy in range(SS):
                    row = (y * SS + sy) * self.n
                    for sx in range(SS):
                        r, g, b, a = self.px[row + x * SS + sx]
                        acc[0] += r * a
                        acc[1] += g * a
                        acc[2] += b * a
                        acc[3] += a
                alpha = acc[3]
                if alpha:
                    a = alpha // (SS * SS)
                    # Straight first, then premultiplied with rounding as Qt does.
                    out += bytes([(c // alpha * a + 127) // 255 for c in acc[:3]] + [a])
                else:
                    out += b"\0\0\0\0"
        return bytes(out)


INK = rgba("#3a4250")
PAPER = rgba("#fbfbf7")


def draw_general(c):
    c.polygon([(3, 1), (10, 1), (13, 4), (13, 15), (3, 15)], INK)
    c.polygon([(4, 2), (9.5, 2), (12, 4.5), (12, 14), (4, 14)], PAPER)
    for y in (6, 8, 10, 12):
        c.rect(5.5, y, 10.5, y + 0.9, rgba("#7a8699"))
    c.polygon([(9.5, 2), (12, 4.5), (9.5, 4.5)], rgba("#c9cfd8"))


def draw_iface(c):
    c.rect(1, 2, 15, 14, INK)
    c.rect(2, 3, 14, 5, rgba("#3a7bd5"))
    c.rect(2, 5, 14, 13, PAPER)
    c.rect(3, 6.5, 7, 11.5, rgba("#c9cfd8"))
    c.rect(8, 6.5, 13, 7.5, rgba("#7a8699"))
    c.rect(8, 9, 12, 10, rgba("#7a8699"))


def draw_background(c):
    c.rect(1, 2, 15, 14, INK)
    c.rect(2, 3, 14, 13, rgba("#8cc4f0"))
    c.circle(11, 6, 1.6, rgba("#f4d03f"))
    c.polygon([(2, 13), (6, 7), (9, 11), (11, 9), (14, 13)], rgba("#3f8f4a"))


def draw_blocks(c):
    c.block(1.5, 4, 4.3, rgba("#8e44ad"))
    c.block(5.8, 4, 4.3, rgba("#8e44ad"))
    c.block(10.1, 4, 4.3, rgba("#8e44ad"))
    c.block(5.8, 8.3, 4.3, rgba("#8e44ad"))


def draw_misc(c):
    pts = []
    import math
    for i in range(16):
        r = 7 if i % 2 == 0 else 3.2
        a = math.pi * 2 * i / 16
        pts.append((8 + r * math.cos(a), 8 + r * math.sin(a)))
    c.polygon(pts, rgba("#e67e22"))
    c.circle(8, 8, 2.6, rgba("#f9e79f"))


def draw_sounds(c):
    c.circle(5, 12, 2.4, INK)
    c.circle(12, 10.5, 2.4, INK)
    c.rect(6.4, 3, 7.6, 12, INK)
    c.rect(13.4, 1.5, 14.4, 10.5, INK)
    c.polygon([(6.4, 2), (14.4, 0.8), (14.4, 3.5), (6.4, 4.7)], INK)


def draw_preview(c):
    c.circle(6.5, 6.5, 5, INK, inner=3.6)
    c.circle(6.5, 6.5, 3.6, rgba("#d6eaf8"))
    c.line(10, 10, 14.5, 14.5, 2.4, INK)


def draw_color(c):
    c.circle(8, 8, 7, INK)
    c.circle(8, 8, 6, rgba("#f5efe0"))
    c.circle(5, 6, 1.4, rgba("#d94a3a"))
    c.circle(8.5, 4.3, 1.4, rgba("#e8b830"))
    c.circle(11.5, 6.8, 1.4, rgba("#3f8f4a"))
    c.circle(10.5, 10.5, 1.4, rgba("#3a7bd5"))
    c.circle(5.8, 10.8, 1.8, (0, 0, 0, 0))  # thumb hole


def draw_play(c):
    c.polygon([(2, 5.5), (5, 5.5), (9, 2), (9, 14), (5, 10.5), (2, 10.5)], INK)
    c.line(11, 5, 12.5, 3.5, 1.1, rgba("#3a7bd5"))
    c.line(11, 8, 14, 8, 1.1, rgba("#3a7bd5"))
    c.line(11, 11, 12.5, 12.5, 1.1, rgba("#3a7bd5"))


ICONS = {
    "tab-general": (draw_general, (16, 32)),
    "tab-iface": (draw_iface, (16, 32)),
    "tab-background": (draw_background, (16, 32)),
    "tab-blocks": (draw_blocks, (16, 32)),
    "tab-misc": (draw_misc, (16, 32)),
    "tab-sounds": (draw_sounds, (16, 32)),
    "preview": (draw_preview, (16, 32)),
    "color": (draw_color, (16, 32)),
    "play": (draw_play, (16, 32)),
}


def main():
    os.makedirs(OUT, exist_ok=True)
    for name, (draw, sizes) in ICONS.items():
        for n, size in enumerate(sizes):
            canvas = Canvas(size)
            draw(canvas)
            suffix = "" if n == 0 else "@2x"
            with open(os.path.join(OUT, name + suffix + ".raw"), "wb") as f:
                f.write(canvas.raw())


if __name__ == "__main__":
    main()
