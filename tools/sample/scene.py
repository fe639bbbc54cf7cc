"""Paints the picture of the sample photo: a lake below a snow-capped cone at dusk.

Everything is drawn from formulas and seeded noise, so every run gives the same pixels.
"""

import math
import random

from PIL import Image, ImageChops, ImageDraw, ImageFilter

WIDTH, HEIGHT = 1600, 1067
SHORE = 668  # row where land meets water
SUN = (520, SHORE - 8)  # where the sun went down
SUPERSAMPLING = 2  # outlines are drawn larger and scaled down, which smooths them

SKY = ((0.0, (24, 34, 74)), (0.28, (52, 62, 116)), (0.52, (116, 94, 144)), (0.72, (206, 128, 134)),
       (0.87, (246, 172, 118)), (1.0, (255, 214, 142)))
CLOUDS = ((0.0, (62, 66, 112)), (0.45, (150, 98, 136)), (0.75, (242, 132, 110)),
          (1.0, (255, 186, 116)))
CONE = ((0.0, (92, 90, 136)), (0.6, (100, 92, 136)), (1.0, (150, 118, 142)))
SNOW_LIT, SNOW_SHADED = (250, 206, 196), (148, 146, 188)
SHADE = (30, 36, 78)


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


def paint_sky():
    picture = Image.new("RGB", (WIDTH, HEIGHT))
    picture.paste(gradient(SKY, SHORE), (0, 0))
    radius = 620
    glow = ImageChops.invert(Image.radial_gradient("L")).resize((2 * radius, radius))
    edge = 76  # what the gradient has left at the middle of a side; only its corners are 0
    glow = glow.point(lambda v: round(210 * (max(0, v - edge) / (255 - edge)) ** 1.6))
    picture.paste((255, 226, 160), (SUN[0] - radius, SUN[1] - radius // 2), glow)

    source = random.Random(7)
    for _ in range(70):
        x, y = source.randrange(WIDTH), int(source.random() ** 1.6 * SHORE * 0.36)
        light = source.randrange(110, 215)
        picture.putpixel((x, y), (light, light, min(255, light + 18)))

    for seed, columns, rows, threshold in ((3, 5, 8, 122), (12, 4, 15, 132)):
        veil = noise(seed, columns, rows, 6)
        veil = veil.point(lambda v, low=threshold: max(0, min(200, round((v - low) * 3.2))))
        fade = gradient(((0.0, (70,) * 3), (0.3, (190,) * 3), (0.8, (230,) * 3),
                         (1.0, (30,) * 3)), SHORE).convert("L")
        mask = ImageChops.multiply(veil.crop((0, 0, WIDTH, SHORE)), fade)
        picture.paste(gradient(CLOUDS, SHORE), (0, 0), mask)
    return picture


def paint_cone(picture):
    """The lone volcano with its snow: sunlit flank on the left, blue shade on the right."""
    peak_x, peak_y, crater = 960, 178, 34
    rough = wave(21, (11, 23, 47, 90))

    def outline(x):
        distance = max(0.0, abs(x - peak_x) - crater)
        return peak_y + 468 * (1 - math.exp(-distance / 330)) + 0.5 * rough(x)

    body = below(outline)
    picture.paste(gradient(CONE), (0, 0), body)

    tongues = wave(5, (19, 31, 53, 120))
    snow_line = below(lambda x: peak_y + 122 + 5 * tongues(x) + 4 * rough(x))
    snow = ImageChops.subtract(body, snow_line.filter(ImageFilter.GaussianBlur(0.8)))
    grooves = noise(17, 90, 3, 3).point(lambda v: max(0, min(255, 128 + (v - 128) * 3)))
    light = below(lambda x: peak_y + 6 * (x - peak_x) + 30 * rough(3 * x))
    light = light.filter(ImageFilter.GaussianBlur(9))
    lit = ImageChops.add(ImageChops.multiply(light, Image.new("L", light.size, 200)),
                         grooves.point(lambda v: v // 5))
    flank = Image.composite(Image.new("RGB", light.size, SNOW_LIT),
                            Image.new("RGB", light.size, SNOW_SHADED), lit)
    picture.paste(flank, (0, 0), snow)
    warm = ImageChops.multiply(body, light).point(lambda v: v // 7)
    picture.paste((255, 170, 140), (0, 0), warm)


def paint_hills(picture):
    """Three ridges, each nearer, lower and darker than the one before."""
    ridges = ((31, SHORE - 92, 26, (128, 102, 138), 0.55), (44, SHORE - 58, 21, (86, 76, 118), 0.7),
              (58, SHORE - 26, 15, (46, 46, 84), 0.85))
    for seed, level, swing, colour, sharpness in ridges:
        broad, fine = wave(seed, (610, 370, 230)), wave(seed + 1, (83, 41, 17, 7))
        mask = below(lambda x, a=broad, b=fine, l=level, s=swing, k=sharpness:
                     l + a(x) * s / 14 + k * b(x))
        picture.paste(colour, (0, 0), mask)
        mist = gradient(((0.0, (0,) * 3), ((level - 20) / HEIGHT, (0,) * 3),
                         (SHORE / HEIGHT, (70,) * 3), (1.0, (70,) * 3))).convert("L")
        picture.paste((214, 150, 150), (0, 0), ImageChops.multiply(mask, mist))


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


def paint_lake(picture):
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
    lake.paste(SHADE, (0, 0), dark.point(lambda v: v * 2 // 5))
    deep = Image.linear_gradient("L").resize((WIDTH, depth)).point(lambda v: 40 + v * 2 // 5)
    lake.paste(SHADE, (0, 0), deep)
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


def paint_foreground(picture):
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
    picture.paste(gradient(((0.0, (26, 28, 52)), (0.7, (20, 22, 40)), (1.0, (10, 12, 22)))),
                  (0, 0), mask)


def add_grain(picture):
    """Sensor noise: hides the steps of the gradients."""
    source = random.Random(99)
    grain = Image.frombytes("L", picture.size, source.randbytes(WIDTH * HEIGHT))
    grain = grain.filter(ImageFilter.GaussianBlur(0.7)).point(lambda v: (v - 128) // 9 + 128)
    return ImageChops.add(picture, Image.merge("RGB", (grain,) * 3), 1, -128)


def paint():
    """The finished picture, WIDTH x HEIGHT, RGB."""
    picture = paint_sky()
    paint_cone(picture)
    paint_hills(picture)
    picture = paint_village(picture)
    paint_lake(picture)
    paint_foreground(picture)
    return add_grain(picture)
