"""What is done on both sides, in the notation of the command line program's step files.

Each scenario starts in a folder with the same picture as photo.bmp, .jpg, .gif, .tif, .png, .webp and .raw, 96 x 64
pixels, and a small stamp.png, 24 x 16. A picture of 200 x 150 pixels in the window of 640 x 480 is shown at (221, 166).

The program composes its window at every step that redraws, the widget once per frame. Where a step follows that changes
something and does not redraw, such as Cut, a @view before it lets the widget have its frame.
"""

LONGS = (-2147483648, -1, 0, 1, 2, 5, 8, 9, 11, 12, 49, 51, 52, 53, 100, 2147483647)
BYTES = (0, 7, 8, 128, 129, 255)


def properties(members):
    """Every property is put with values around its limits, and read after each."""
    lines = []
    for member in members.values():
        if not member.is_property:
            continue
        values = {"Long": LONGS, "Byte": BYTES, "Boolean": ("true", "false", "true"),
                  "Color": ("0x00123456", "0x00FFFFFF", "0x00000000", "0x00FE01FF"),
                  "String": ("stamp.png", "'nothing here'", "''")}.get(member.type, ())
        lines.append(f"{member.name}?")
        lines += [f"{member.name}={value} {member.name}?" for value in values if member.can_put]
    return "\n".join(lines)


def each(*calls):
    """Every call on the same picture, each saved, undone, and in the end all that can be seen of them."""
    return "LoadImage photo.png " + "\n".join(f"{call} -o {n}.bmp Undo Modified?" for n, call in enumerate(calls))


def on_blank(*lines):
    return "NewImage 200 150\n" + "\n".join(lines) + "\n"


def drawn(mode, *gestures, settings="", accept="Accept"):
    """A figure that is drawn by hand, looked at while it is pending and when it is part of the picture."""
    return on_blank(settings, f"PaintStatus={mode}", *gestures,
                    f"@view pending{mode}.png UndoEnable? {accept} @view done{mode}.png -o {mode}.bmp UndoEnable?")


BOX = "@drag 240 190 300 210 350 230 380 280 @end"
CLICKS = """@press 240 190 @release 240 190 @press 330 180 @release 330 180 @press 390 250 @release 390 250
            @press 300 290 @release 300 290 @press 260 260 @release 260 260"""
STROKE = "@drag 240 190 250 200 270 195 300 240 340 300 380 220 381 221 @end"


def scenarios(members):
    """Steps by name. With ", slowly" the widget runs the methods on its worker thread; with ", in-haste" the pointer
    makes all the moves of a drag at once; with ", shown-late" the widget has no window until there is a @ step."""
    result = {
        "properties without a picture": properties(members),
        "properties with a picture": "LoadImage photo.png " + properties(members) + " EndUpdate @view end.png",

        "tones": each("Desaturate", "Saturate 160", "Contrast 130", "Brightness 10 -20 30", "Lightness 120 80 100",
                      "Invert", "Monochrome 120 0x00FF8000 0x00002040", "Gamma 0.6", "Temperature 40",
                      "Temperature -101", "Hue 200 40 90", "Sepia", "Autocolor", "Autocontrast", "Autolevels"),
        "neighbourhoods": each("Emboss 2 3", "Blur 3", "Mosaic 0 3", "Mosaic 1 2", "Average 4 2", "BlurMotion 5 1",
                               "Laplas", "Sharpen", "Aquarelle 3", "Minimal 1", "Maximal 2", "Median 2", "Sobel 1",
                               "UserEffect 0,-1,0,-1,5,-1,0,-1,0", "UserEffect 1,2", "GaussianBlur 3 2",
                               "SmartBlur 3 40", "SharpenEdge 30"),
        "light and lenses": each("BlurZoom 8 40 30", "BlurRadial 50 30 12", "Glow 180 5 4", "GlowingEdge 60 4 3",
                                 "SoftFocus 2 12 20 40 30", "FocalBW 14 18 50 30", "Twirl 30", "Twirl -12"),
        "chance": "LoadImage photo.png Noise 0 40 -o 1.bmp Noise 1 30 -o 2.bmp "
            "Diffuse 4 -o 3.bmp Undo Diffuse 2 -o 4.bmp",
        "turned and scaled": "LoadImage photo.png " + " ".join(
            f"RotateFlip {n} -o {n}.bmp ImageWidth? ImageHeight? @view {n}.png" for n in (1, 2, 4, 7, 3, 5, 0, 6))
            + " ScaleImage 1.7 0.6 -o 8.bmp ImageWidth? Undo ImageWidth? ScaleImage 0 1 ImageWidth? @view 9.png",
        "histograms": """GetRHistogram GetGHistogram GetBHistogram GetLHistogram LoadImage photo.png
            GetRHistogram GetGHistogram GetBHistogram GetLHistogram Autolevels GetRHistogram GetLHistogram""",
        "history": """LoadImage photo.png UndoEnable? Invert Blur 2 Sepia UndoEnable? RedoEnable? Undo
            -o 1.bmp Modified? Undo RedoEnable? Redo -o 2.bmp Undo Undo Undo UndoEnable? -o 3.bmp Modified?
            Redo Redo Redo Redo -o 4.bmp Undo Gamma 2 RedoEnable? Redo -o 5.bmp
            RotateFlip 1 Undo ImageWidth? Redo ImageWidth? """
            + " ".join(f"Brightness {n} 1 2" for n in range(12)) + " Undo" * 14 + " UndoEnable? -o 6.bmp",

        "saved": """SaveImage no.bmp 0 LoadImage photo.png Invert Modified? SaveImage a 0 Modified? SaveImage b 1
            JpegQuality=20 SaveImage c 1 SaveImage d 2 SaveImage e 3 SaveImage f 4 SaveImage g 5 SaveImage none/h 0
            -o i.bmp -o j.jpg -o k.gif -o l.tif -o m.png""",
        "loaded": "\n".join(f"LoadImage photo.{kind} -o {kind}.bmp @view {kind}.png ImageWidth? Modified? UndoEnable?"
                            for kind in ("bmp", "jpg", "gif", "tif", "png", "webp"))
            + " LoadImage photo.raw IsEmpty? LoadImage photo.png SaveImage gone.png 7 @view before.png "
              "LoadImage gone.png IsEmpty? @view end.png",
        "arrays": """GetImageArray none.raw LoadFromImageArray photo.raw 96 64 Modified? UndoEnable? ImageWidth?
            GetImageArray 1.raw Sepia GetImageArray 2.raw UndoEnable? RedoEnable? LoadFromImageArray photo.raw 64 96
            -o 1.bmp @view 1.png LoadFromImageArray photo.raw 97 64 IsEmpty? ImageWidth?
            LoadFromImageArray photo.raw 1 1 LoadFromImageArray photo.raw 2 2 -o 2.bmp""",
        "emptied": """BitmapBackColor=0x00408020 NewImage 200 150 IsEmpty? Invert Modified? @view 1.png Empty IsEmpty?
            ImageWidth? UndoEnable? @view 2.png Invert Undo PaintStatus=3 PaintStatus? NewImage 3 3 IsEmpty?
            NewImage 4 4 ImageHeight? -o 1.bmp""",

        "lines": drawn(1, BOX, settings="PenWidth=3 PenColor=0x00208040")
            + drawn(3, STROKE, settings="PenWidth=5 PenTransparency=100 PenStyle=1", accept=""),
        "curves": drawn(2, CLICKS, settings="PenWidth=2 PenStyle=2") + drawn(4, CLICKS)
            + drawn(5, CLICKS, settings="BrushStyle=1 BrushGradientStyle=2 BrushTransparency=180"),
        "vertices": drawn(10, CLICKS, "@drag 330 180 350 170 360 200 @end", "@view dragged.png",
                          "@rightpress 300 290 @rightrelease 300 290", settings="BrushStyle=2 BrushHatchStyle=11")
            + drawn(13, CLICKS, "@press 270 200 @release 270 200 @press 250 300 @release 250 300",
                    "@drag 390 250 380 230 @end", settings="PenWidth=4"),
        "arcs": drawn(6, BOX, "@drag 370 235 350 200 @end", settings="PenWidth=4")
            + drawn(9, BOX, "@drag 310 190 290 200 @end", settings="BrushStyle=1 BrushGradientStyle=3"),
        "boxes": drawn(8, BOX, "@drag 310 240 330 230 335 225 @end", settings="BrushColor1=0x0000FFFF PenStyle=4")
            + drawn(11, BOX, "@drag 240 190 230 180 @end @drag 380 280 390 270 @end", settings="PenStyle=5 PenWidth=8"),
        "the brush fills": on_blank("PenWidth=2", "BrushColor1=0x00FF4020", "BrushColor2=0x0020C0FF",
            *(f"""{setting} PaintStatus=11 @drag {230 + 30 * (n % 6)} {180 + 32 * (n // 6)} {255 + 30 * (n % 6)}
                  {208 + 32 * (n // 6)} @end Accept""" for n, setting in enumerate((
                "BrushStyle=0", "BrushStyle=1 BrushGradientStyle=0", "BrushGradientStyle=1", "BrushGradientStyle=3",
                "BrushStyle=2 BrushHatchStyle=0", "BrushHatchStyle=17", "BrushHatchStyle=52",
                "TextureFileName=stamp.png BrushStyle=3", "BrushTextureStyle=1", "BrushTextureStyle=2",
                "BrushTextureStyle=3", "BrushTransparency=90", "TextureFileName=none.png", "BrushStyle=4",
                "BrushStyle=0 BrushTransparency=40"))), "-o 1.bmp @view 1.png"),
        "figures go with the zoom": on_blank("PaintStatus=11", BOX,
            "ZoomIn @view 1.png ZoomIn ZoomIn Zoom? @view 2.png Accept -o 1.bmp PaintStatus=10", CLICKS,
            "ZoomOut ZoomOut @view 3.png ActialSize @view 4.png ResetTrack",
            "@view 5.png Accept", BOX, "ZoomToFit @view 6.png Accept -o 2.bmp"),
        "nibs": on_blank("PenColor=0x00A01060", *(
            f"""ToolBrushStyle={style} ToolBrushSize={size} PaintStatus=12 @drag {235 + 25 * style} 180
                {245 + 25 * style} 220 {236 + 25 * style} 300 @end @move {238 + 25 * style} 305 @view {style}.png"""
            for style, size in enumerate((1, 3, 5, 7, 9, 11)))) + "\n" + """EraserSize=6 PaintStatus=15 @move 230 200
            @view 6.png @drag 230 200 390 260 300 300 @end @view 7.png -o 1.bmp EraserSize=1 @drag 240 240 400 200 @end
            Undo -o 2.bmp Redo -o 3.bmp @move 100 100 @move 700 100 @view 8.png""",
        "spray": on_blank("PaintStatus=7 SprayRadius=20 @press 300 220 @tick 3 @view 1.png @move 320 230 @tick 2",
            "@move 350 250 @move 351 250 @release 351 250 @tick 4 @view 2.png -o 1.bmp",
            "SprayRadius=50 PenTransparency=60 PenColor=0x00FF0000 @press 260 200 @tick 5 @release 262 200",
            "-o 2.bmp Undo -o 3.bmp PaintStatus=0 @tick 3",
            "Noise 0 9 -o 4.bmp"),
        "text": on_blank("SetupFontByName 'dejavu sans' FontName? FontSize=24 DrawString 'Lake Orv\u00e4' PaintStatus?",
            "@view 1.png @drag 240 180 280 220 @end FontStyleBold=true FontStyleUnderline=true @view 2.png Accept",
            "-o 1.bmp SetupFontByName nothing FontIndex=3 FontStyleItalic=true FontStyleStrikeout=true BrushStyle=1",
            "FontSize=40 DrawString 'two\nlines' @drag 230 180 260 200 @end @view 3.png ZoomIn @view 4.png Accept",
            "-o 2.bmp Undo -o 3.bmp DrawString '' @view 5.png FontIndex=9 FontStyleBold=false FontSize=8",
            "BrushTransparency=99 DrawString small Accept -o 4.bmp FontCount?"),
        "stamps": on_blank("SaveImage gone.png 7 DrawImage gone.png PaintStatus? DrawImage stamp.png PaintStatus?",
            "@view 0.png", *(
            f"""ImageStyle={style} ImageTransparency1={250 - 20 * style} ImageTransparency2={10 + 20 * style} DrawImage
                stamp.png @drag 225 170 {240 + 22 * style} {180 + 15 * style} @end @view s{style}.png Accept"""
            for style in range(7)), "-o 1.bmp UseImageMaskColor=true ImageMaskColor=0x000000FF @view 1.png",
            "DrawImage stamp.png @drag 230 174 300 300 @end ZoomIn ZoomIn @view 2.png Accept -o 2.bmp",
            "DrawImage photo.raw @view 3.png Accept -o 3.bmp"),
        "stamps are sized": on_blank("DrawImage stamp.png @drag 244 181 300 230 @end @view 1.png",
            "@drag 260 200 280 210 @end @view 2.png Accept -o 1.bmp"),

        "crop": "LoadImage photo.png " + "PaintStatus=17 @drag 290 220 340 260 @end @view 1.png "
            "@drag 340 260 350 265 @end @view 2.png Accept ImageWidth? ImageHeight? -o 1.bmp @view 3.png Undo -o 2.bmp "
            "ImageWidth? ScaleImage 20 20 Zoom? PaintStatus=17 @drag 100 100 500 300 @end Accept ImageWidth? -o 3.bmp",
        "red eyes": "LoadImage photo.png PaintStatus=19 @drag 290 220 330 250 @end -o 1.bmp @view 1.png Undo -o 2.bmp "
            "@press 300 230 @move 340 260 @view 2.png @release 340 260 -o 3.bmp",
        "track point": on_blank("PaintStatus=21 @view 1.png @drag 320 240 330 250 500 100 @end @view 2.png",
            "@drag 100 100 110 110 @end @view 3.png -o 1.bmp UndoEnable?"),
        "turned by hand": """LoadImage photo.png PaintStatus=20 @view 1.png @move 225 442 @view 2.png
            @press 220 442 @move 250 440 @view 3.png @move 300 441 @view 4.png @release 300 441
            @move 390 442 @view 5.png @press 390 442 @release 390 442 PaintStatus? ImageWidth? -o 1.bmp @view 6.png
            Undo -o 2.bmp PaintStatus=20 @press 220 442 @move 150 442 @release 150 442 @press 460 442 @release 460 442
            PaintStatus? UndoEnable? -o 3.bmp @view 7.png""",
        "selected and cut": """LoadImage photo.png Copy IsClipboardAvailable? PaintStatus=18 CopyCutAvailable?
            @drag 290 220 330 250 @end CopyCutAvailable? @tick 1 @view 1.png @tick 3 @view 2.png Copy
            IsClipboardAvailable? UndoEnable? Paste PaintStatus? @view 3.png @drag 276 212 340 240 @end Accept -o 1.bmp
            PaintStatus=18 @drag 300 215 350 240 @end BitmapBackColor=0x0000FFFF @view 9.png Cut
            CopyCutAvailable? -o 2.bmp @view 4.png Undo NewImage 60 50 Paste @view 5.png Accept -o 3.bmp @view 10.png
            SelectAll PaintStatus? CopyCutAvailable? @view 6.png @tick 2 @view 7.png Cut -o 4.bmp
            LoadImage photo.bmp Paste Accept -o 5.bmp SelectAll Copy Empty Paste IsEmpty? IsClipboardAvailable?
            NewImage 100 70 Paste ZoomIn @view 8.png Accept -o 6.bmp""",

        "zoom": """LoadImage photo.png Zoom? ZoomIn Zoom? @view 1.png ZoomIn ZoomIn ZoomOut @view 2.png ZoomToFit Zoom?
            @view 3.png ZoomOut ZoomOut Zoom? @view 4.png ActialSize Zoom? @view 5.png BackColor1=0x00336699
            FrameColor=0x00FFFF00 @view 6.png PaintStatus=1 BackColor1=0x00993366 @view 7.png""" + " ZoomOut" * 40
            + " Zoom? @view 8.png" + " ZoomIn" * 90 + " Zoom? @view 9.png",
        "the scroll window": """LoadImage photo.png ScaleImage 10 10 Zoom? @view 1.png ActialSize @view 2.png
            @press 560 400 @move 580 410 @view 3.png @move 540 390 @release 540 390 @view 4.png
            ScrollWindowColor=0x00CC4400 @view 5.png ZoomIn @view 6.png ScrollWindowVisible=false EndUpdate @view 7.png
            @drag 300 200 250 150 200 190 @end @view 8.png ScrollWindowVisible=true EndUpdate @view 9.png
            @press 625 363 @view 10.png @release 625 363 ScrollWindowVisible? @view 11.png
            PaintStatus=11 @drag 100 100 300 300 @end @view 12.png Accept -o 1.bmp""",
        "updates are held": """LoadImage photo.png @view 0.png BeginUpdate Invert PaintStatus=11 @drag 280 220 340 250
            @end ZoomIn @view 1.png EndUpdate @view 2.png Accept -o 1.bmp @view 4.png BeginUpdate Undo Sepia EndUpdate
            @view 3.png -o 2.bmp""",
        "other windows": """LoadImage photo.png @size 400 300 ZoomToFit @view 1.png Zoom? PaintStatus=8
            @drag 160 130 240 170 @end @size 300 320 EndUpdate @view 2.png Accept -o 1.bmp @size 60 40 ZoomIn Zoom?
            @view 3.png LoadImage photo.png Zoom? @view 4.png @size 500 400 LoadImage photo.png @view 5.png""",
        "without a window, shown-late": """NewImage 20 30 Zoom? LoadImage photo.png Noise 1 50 Zoom? -o 1.bmp
            Invert Copy IsClipboardAvailable? SelectAll Copy IsClipboardAvailable? Paste PaintStatus? Accept
            -o 2.bmp PaintStatus=0""",
        "small and shown late, shown-late": "LoadImage photo.png Sepia @view 1.png Zoom? -o 1.bmp",
        "large and shown late, shown-late": """LoadImage photo.png ScaleImage 20 20 Zoom? -o big.bmp
            LoadImage big.bmp Zoom? RotateFlip 2 @view 1.png Zoom?""",
        "zoomed and shown late, shown-late": "LoadImage photo.png ScaleImage 9 9 ZoomIn Zoom? @view 1.png Zoom?",
        "dropped": "@drop '/nowhere/a photo.jpg' IsEmpty? LoadImage photo.png @drop /nowhere/\u00e4.png ImageWidth?",
        "leaving the window": on_blank("PaintStatus=3 @drag 300 200 380 230 700 300 330 310 -40 200 240 -30 @end",
            "-o 1.bmp @view 1.png PaintStatus=11 @drag 300 200 660 500 @end @view 2.png Accept -o 2.bmp PaintStatus=12",
            "ToolBrushStyle=3 ToolBrushSize=11 @move 300 200 @move 700 200 @view 3.png @move 320 240 @view 4.png"),
    }
    for name in ("tones", "neighbourhoods", "light and lenses", "history", "loaded"):
        result[name + ", slowly"] = result[name]
    for name in ("lines", "nibs", "spray", "boxes", "the scroll window", "turned by hand", "leaving the window"):
        result[name + ", in-haste"] = result[name]
    return result
