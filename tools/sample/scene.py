"""Paints the pictures of the sample photos: a lake below a snow-capped cone, at dusk or in another
light.

Everything is drawn from formulas and seeded noise, so every run gives the same pixels.
"""

import math
import random
from dataclasses import dataclass

from PIL import Image, ImageChops, ImageDraw, ImageFilter

WIDTH, HEIGHT = 1600, 1067
SHORE = 668  # row where land meets water
SUN = (520, SHORE - 8)  # where the sun went down
SUPERSAMPLING = 2  # outlines are drawn larger and scaled down, which smooths them

@dataclass(frozen=True)
class Light:
    """The colours of one time of the day; gradients are (position 0..1, colour) from the top."""
    sky: tuple
    clouds: tuple
    cone: tuple
    snow: tuple      # lit, shaded
    glow: tuple      # around the sun
    ridges: tuple    # far to near
    mist: tuple
    deep: tuple      # of the water's shadows
    bank: tuple
    stars: bool = True
    lamps: bool = True


DUSK = Light(
    sky=((0.0, (24, 34, 74)), (0.28, (52, 62, 116)), (0.52, (116, 94, 144)),
         (0.72, (206, 128, 134)), (0.87, (246, 172, 118)), (1.0, (255, 214, 142))),
    clouds=((0.0, (62, 66, 112)), (0.45, (150, 98, 136)), (0.75, (242, 132, 110)),
            (1.0, (255, 186, 116))),
    cone=((0.0, (92, 90, 136)), (0.6, (100, 92, 136)), (1.0, (150, 118, 142))),
    snow=((250, 206, 196), (148, 146, 188)), glow=(255, 226, 160),
    ridges=((128, 102, 138), (86, 76, 118), (46, 46, 84)), mist=(214, 150, 150),
    deep=(30, 36, 78), bank=((0.0, (26, 28, 52)), (0.7, (20, 22, 40)), (1.0, (10, 12, 22))))

NOON = Light(
    sky=((0.0, (44, 104, 180)), (0.5, (104, 164, 218)), (1.0, (206, 228, 240))),
    clouds=((0.0, (244, 248, 252)), (1.0, (255, 255, 255))),
    cone=((0.0, (84, 104, 142)), (1.0, (122, 142, 158))),
    snow=((252, 252, 255), (176, 194, 222)), glow=(240, 246, 250),
    ridges=((104, 136, 138), (78, 116, 92), (52, 92, 58)), mist=(200, 216, 224),
    deep=(18, 58, 96), bank=((0.0, (40, 84, 44)), (0.7, (34, 70, 36)), (1.0, (18, 40, 22))),
    stars=False, lamps=False)

NIGHT = Light(
    sky=((0.0, (6, 8, 26)), (0.6, (16, 24, 56)), (1.0, (44, 56, 96))),
    clouds=((0.0, (16, 20, 44)), (1.0, (52, 58, 94))),
    cone=((0.0, (30, 36, 66)), (1.0, (40, 46, 76))),
    snow=((150, 160, 200), (74, 82, 124)), glow=(70, 84, 128),
    ridges=((26, 32, 58), (18, 22, 44), (10, 12, 28)), mist=(60, 70, 108),
    deep=(6, 10, 30), bank=((0.0, (6, 8, 18)), (1.0, (2, 3, 8))))

DAWN = Light(
    sky=((0.0, (88, 118, 168)), (0.5, (186, 176, 196)), (0.8, (244, 200, 176)),
         (1.0, (255, 232, 200))),
    clouds=((0.0, (214, 190, 206)), (0.6, (250, 204, 186)), (1.0, (255, 232, 206))),
    cone=((0.0, (120, 110, 150)), (1.0, (176, 150, 164))),
    snow=((255, 214, 204), (178, 176, 212)), glow=(255, 240, 206),
    ridges=((168, 146, 160), (140, 126, 142), (96, 96, 112)), mist=(238, 214, 206),
    deep=(84, 92, 130), bank=((0.0, (58, 56, 62)), (1.0, (28, 28, 34))),
    stars=False, lamps=False)

AUTUMN = Light(
    sky=((0.0, (70, 116, 170)), (0.6, (150, 186, 212)), (1.0, (246, 230, 198))),
    clouds=((0.0, (226, 232, 240)), (1.0, (255, 240, 220))),
    cone=((0.0, (96, 98, 132)), (1.0, (140, 132, 140))),
    snow=((255, 246, 236), (172, 182, 212)), glow=(255, 240, 204),
    ridges=((150, 120, 108), (176, 92, 52), (138, 56, 34)), mist=(232, 206, 180),
    deep=(44, 56, 84), bank=((0.0, (116, 50, 26)), (0.6, (84, 36, 22)), (1.0, (40, 20, 16))),
    stars=False, lamps=False)


def gradient(stops, height=HEIGHT):
    """A picture whose rows run through the colour stops (position 0..1, colour)."""
    column = Image.new("RGB", (1, height))
    for y in range(height):
        t = y / (height - 1)
        (t0, c0), (t1, c1) = next((a, b) for a, b in zip(stops, stops[1:]) if t <= b[0])
        mix = (t - t0) / (t1 - t0)
        column.putpixel((0, y), tuple(round(p + (q - p) * mix) for p, q in zip(c0, c1)))
    return column.resize((WIDTH, height))


def noise(seed, columns, rows, octaves, size=(WIDTH, HEIGHT)):
    """Smooth grey noise; each octave doubles the cells and halves the weight."""
    source = random.Random(seed)
    result, weight = None, 1.0
    for octave in range(octaves):
        cells = (columns << octave, rows << octave)
        layer = Image.frombytes("L", cells, source.randbytes(cells[0] * cells[1]))
        layer = layer.resize(size, Image.Resampling.BICUBIC)
        result = layer if result is None else Image.blend(result, layer, weight)
        weight /= 2
        weight = weight / (1 + weight)
    return result


def wave(seed, lengths):
    """A sum of sines with the given wave lengths, each as high as a fraction of its length."""
    source = random.Random(seed)
    parts = [(2 * math.pi / length, source.uniform(0, 2 * math.pi), length * 0.035)
             for length in lengths]
    return lambda x: sum(height * math.sin(x * rate + phase) for rate, phase, height in parts)


def below(outline):
    """A mask of everything under the curve y = outline(x)."""
    scale = SUPERSAMPLING
    mask = Image.new("L", (WIDTH * scale, HEIGHT * scale))
    points = [(x, outline(x / scale) * scale) for x in range(WIDTH * scale + 1)]
    corners = [(WIDTH * scale, HEIGHT * scale), (0, HEIGHT * scale)]
    ImageDraw.Draw(mask).polygon(points + corners, fill=255)
    return mask.resize((WIDTH, HEIGHT), Image.Resampling.BOX)


def paint_sky(light):
    picture = Image.new("RGB", (WIDTH, HEIGHT))
    picture.paste(gradient(light.sky, SHORE), (0, 0))
    radius = 620
    glow = ImageChops.invert(Image.radial_gradient("L")).resize((2 * radius, radius))
    edge = 76  # what the gradient has left at the middle of a side; only its corners are 0
    glow = glow.point(lambda v: round(210 * (max(0, v - edge) / (255 - edge)) ** 1.6))
    picture.paste(light.glow, (SUN[0] - radius, SUN[1] - radius // 2), glow)

    source = random.Random(7)
    for _ in range(70 if light.stars else 0):
        x, y = source.randrange(WIDTH), int(source.random() ** 1.6 * SHORE * 0.36)
        star = source.randrange(110, 215)
        picture.putpixel((x, y), (star, star, min(255, star + 18)))

    for seed, columns, rows, threshold in ((3, 5, 8, 122), (12, 4, 15, 132)):
        veil = noise(seed, columns, rows, 6)
        veil = veil.point(lambda v, low=threshold: max(0, min(200, round((v - low) * 3.2))))
        fade = gradient(((0.0, (70,) * 3), (0.3, (190,) * 3), (0.8, (230,) * 3),
                         (1.0, (30,) * 3)), SHORE).convert("L")
        mask = ImageChops.multiply(veil.crop((0, 0, WIDTH, SHORE)), fade)
        picture.paste(gradient(light.clouds, SHORE), (0, 0), mask)
    return picture


def paint_cone(picture, light):
    """The lone volcano with its snow: sunlit flank on the left, blue shade on the right."""
    peak_x, peak_y, crater = 960, 178, 34
    rough = wave(21, (11, 23, 47, 90))

    def outline(x):
        distance = max(0.0, abs(x - peak_x) - crater)
        return peak_y + 468 * (1 - math.exp(-distance / 330)) + 0.5 * rough(x)

    body = below(outline)
    picture.paste(gradient(light.cone), (0, 0), body)

    tongues = wave(5, (19, 31, 53, 120))
    snow_line = below(lambda x: peak_y + 122 + 5 * tongues(x) + 4 * rough(x))
    snow = ImageChops.subtract(body, snow_line.filter(ImageFilter.GaussianBlur(0.8)))
    grooves = noise(17, 90, 3, 3).point(lambda v: max(0, min(255, 128 + (v - 128) * 3)))
    shine = below(lambda x: peak_y + 6 * (x - peak_x) + 30 * rough(3 * x))
    shine = shine.filter(ImageFilter.GaussianBlur(9))
    lit = ImageChops.add(ImageChops.multiply(shine, Image.new("L", shine.size, 200)),
                         grooves.point(lambda v: v // 5))
    flank = Image.composite(Image.new("RGB", shine.size, light.snow[0]),
                            Image.new("RGB", shine.size, light.snow[1]), lit)
    picture.paste(flank, (0, 0), snow)
    warm = ImageChops.multiply(body, shine).point(lambda v: v // 7)
    picture.paste((255, 170, 140), (0, 0), warm)


def paint_hills(picture, light):
    """Three ridges, each nearer, lower and darker than the one before."""
    far, middle, near = light.ridges
    ridges = ((31, SHORE - 92, 26, far, 0.55), (44, SHORE - 58, 21, middle, 0.7),
              (58, SHORE - 26, 15, near, 0.85))
    for seed, level, swing, colour, sharpness in ridges:
        broad, fine = wave(seed, (610, 370, 230)), wave(seed + 1, (83, 41, 17, 7))
        mask = below(lambda x, a=broad, b=fine, l=level, s=swing, k=sharpness:
                     l + a(x) * s / 14 + k * b(x))
        picture.paste(colour, (0, 0), mask)
        mist = gradient(((0.0, (0,) * 3), ((level - 20) / HEIGHT, (0,) * 3),
                         (SHORE / HEIGHT, (70,) * 3), (1.0, (70,) * 3))).convert("L")
        picture.paste(light.mist, (0, 0), ImageChops.multiply(mask, mist))


def paint_village(picture):
    """Lamps along the far shore; the lake mirrors them afterwards."""
    source = random.Random(90)
    lamps = Image.new("RGB", (WIDTH, HEIGHT))
    draw = ImageDraw.Draw(lamps)
    for _ in range(64):
        x = int(source.gauss(1180, 130) if source.random() < 0.7 else source.uniform(60, 1560))
        y = SHORE - 3 - int(abs(source.gauss(0, 5)))
        draw.rectangle((x, y, x + 1, y + 1), fill=source.choice(
            ((255, 196, 110), (255, 222, 160), (255, 176, 90))))
    glow = lamps.filter(ImageFilter.GaussianBlur(4)).point(lambda v: min(255, v * 5))
    return ImageChops.screen(ImageChops.screen(picture, glow), lamps)


def paint_lake(picture, light):
    """The mirrored land, drawn out by ripples that grow towards the viewer."""
    depth = HEIGHT - SHORE
    mirror = picture.crop((0, 0, WIDTH, SHORE)).transpose(Image.Transpose.FLIP_TOP_BOTTOM)
    mirror = mirror.resize((WIDTH, round(SHORE * 0.82))).filter(ImageFilter.GaussianBlur(1.2))
    swell = wave(64, (5.3, 9.1, 17, 38))
    lake = Image.new("RGB", (WIDTH, depth))
    for y in range(depth):
        near = y / depth
        bend = swell(y / (0.35 + near)) * (0.8 + 9 * near)
        row = max(0, min(mirror.height - 1, round(y + bend * 1.3)))
        strip = ImageChops.offset(mirror.crop((0, row, WIDTH, row + 1)), round(bend * 2.2), 0)
        lake.paste(strip, (0, y))
    lake = Image.blend(lake, lake.filter(ImageFilter.BoxBlur(2)), 0.6)

    ripples = Image.new("L", (WIDTH, depth))
    for seed, columns, rows, top in ((70, 60, 120, 0), (71, 30, 60, depth // 6),
                                     (72, 16, 40, depth // 2)):
        band = noise(seed, columns, rows, 2, (WIDTH, depth - top))
        fade = Image.linear_gradient("L").resize((WIDTH, depth - top)) if top else None
        ripples.paste(band, (0, top), fade)
    dark = ripples.point(lambda v: max(0, min(150, round((v - 118) * 2.2))))
    lake.paste(light.deep, (0, 0), dark.point(lambda v: v * 2 // 5))
    deep = Image.linear_gradient("L").resize((WIDTH, depth)).point(lambda v: 40 + v * 2 // 5)
    lake.paste(light.deep, (0, 0), deep)
    picture.paste(lake, (0, SHORE))
    ImageDraw.Draw(picture).line((0, SHORE, WIDTH, SHORE), fill=(58, 52, 88), width=2)


def draw_fir(draw, x, foot, height, source):
    """A fir: a trunk and drooping tiers of twigs that widen downwards."""
    draw.line((x, foot, x, foot - height), fill=255, width=max(2, round(height / 60)))
    step = max(7, height // 34)
    for top in range(0, round(height * 0.94), step):
        t = top / height
        y = foot - height + top
        for side in (-1, 1):
            reach = height * (0.012 + 0.19 * t) * source.uniform(0.55, 1.15)
            droop = reach * source.uniform(0.3, 0.55)
            draw.polygon(((x, y - step * 0.5), (x + side * reach, y + droop),
                          (x + side * reach * 0.6, y + droop * 0.85 + step * 0.25),
                          (x, y + step * 0.55)), fill=255)


def draw_grass(draw, x, foot, height, source):
    """One bent blade, thinner towards its tip."""
    lean = source.gauss(0.18, 0.28)
    last = (x, foot)
    for step in range(1, 9):
        t = step / 8
        point = (x + lean * height * t * t, foot - height * (t - 0.18 * abs(lean) * t * t))
        draw.line((last, point), fill=255, width=max(1, round(5 * (1 - t))))
        last = point


def paint_foreground(picture, light):
    """The near bank with its firs and grass, almost black against the water."""
    scale = SUPERSAMPLING
    source = random.Random(2)
    rough = wave(81, (240, 97, 41, 13))

    def bank(x):
        slope = 150 * math.exp(-x / 260) + 70 * math.exp(-(WIDTH - x) / 170)
        return HEIGHT - 26 - slope + 0.9 * rough(x)

    large = below(bank).resize((WIDTH * scale, HEIGHT * scale))
    draw = ImageDraw.Draw(large)
    for x, height in ((38, 560), (112, 690), (206, 450), (262, 250), (322, 330), (386, 170),
                      (1452, 200), (1516, 400), (1582, 540)):
        draw_fir(draw, x * scale, (bank(x) + 22) * scale, height * scale, source)
    for _ in range(900):
        x = source.uniform(0, WIDTH)
        draw_grass(draw, x * scale, (bank(x) + 6) * scale,
                   source.uniform(12, 46) * scale, source)
    mask = large.resize((WIDTH, HEIGHT), Image.Resampling.BOX)
    picture.paste(gradient(light.bank), (0, 0), mask)


def add_grain(picture):
    """Sensor noise: hides the steps of the gradients."""
    source = random.Random(99)
    grain = Image.frombytes("L", picture.size, source.randbytes(WIDTH * HEIGHT))
    grain = grain.filter(ImageFilter.GaussianBlur(0.7)).point(lambda v: (v - 128) // 9 + 128)
    return ImageChops.add(picture, Image.merge("RGB", (grain,) * 3), 1, -128)


def paint(light=DUSK):
    """The finished picture, WIDTH x HEIGHT, RGB."""
    picture = paint_sky(light)
    paint_cone(picture, light)
    paint_hills(picture, light)
    if light.lamps:
        picture = paint_village(picture)
    paint_lake(picture, light)
    paint_foreground(picture, light)
    return add_grain(picture)
