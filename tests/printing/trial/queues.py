"""What jobs may ask of the printers of a trial, and what each of it means.

A table is written by hand from the descriptions: the words of clients are those of IPP
or of the scheduler's queues, the settings those of the description. A group of a table
is what a job has at most one of.
"""

def named(option, words):
    """Words of one option of lp, each with its settings: "WORD FEATURE=CHOICE..."."""
    group = []
    for word, *settings in (line.split() for line in words.strip().splitlines()):
        group.append((['-o', f'{option}={word}'], settings))
    return group


def copies(setting, most=4):
    """Copies, and what says so; without a place for "{}", the document has each page again."""
    return [(['-n', str(count)], [setting.format(count)] if setting else [])
            for count in range(2, most + 1)]


# Both ways to say the same, as clients do.
def twoSided(none, long, short):
    return (named('sides', f'''
        one-sided {none}
        two-sided-long-edge {long}
        two-sided-short-edge {short}''')
            + named('Duplex', f'''
        None {none}
        DuplexNoTumble {long}
        DuplexTumble {short}'''))


# Options for pages: the scheduler carries them out, and no command changes.
PAGES = [(['-o', 'page-ranges=1'], []), (['-o', 'number-up=2'], []), (['-o', 'fit-to-page'], [])]

OFFICE = [
    named('PageSize', '''
        A3 PageSize=A3
        A4 PageSize=A4
        A5 PageSize=A5
        EnvC5 PageSize=EnvC5
        EnvDL PageSize=EnvDL
        Executive PageSize=Executive
        Legal PageSize=Legal
        Letter PageSize=Letter
        Tabloid PageSize=Ledger''') + named('media', '''
        iso_a3_297x420mm PageSize=A3
        iso_a5_148x210mm PageSize=A5
        na_letter_8.5x11in PageSize=Letter
        na_ledger_11x17in PageSize=Ledger
        Custom.4x6in PageSize=Custom CustomPageWidth=101.6 CustomPageHeight=152.4
        Custom.10x15in PageSize=Custom CustomPageWidth=254 CustomPageHeight=381'''),
    named('InputSlot', '''
        Auto InputSlot=Auto
        Manual InputSlot=Manual
        ByPassTray InputSlot=Multipurpose
        Tray1 InputSlot=Tray1
        Tray2 InputSlot=Tray2'''),
    named('MediaType', '''
        Stationery MediaType=Plain
        StationeryRecycled MediaType=Recycled
        StationeryLetterhead MediaType=Letterhead
        Cardstock MediaType=CardStock
        Envelope MediaType=Envelope
        Labels MediaType=Labels
        Transparency MediaType=Transparency'''),
    twoSided('Duplex=OneSided', 'Duplex=LongEdge', 'Duplex=ShortEdge'),
    named('ColorModel', '''
        Gray ColorMode=Grayscale
        RGB ColorMode=Color''') + named('print-color-mode', '''
        monochrome ColorMode=Grayscale
        color ColorMode=Color'''),
    named('OutputBin', '''
        Top OutputBin=Top
        FaceUp OutputBin=FaceUp
        Stacker1 OutputBin=Stacker''') + named('output-bin', '''
        face-up OutputBin=FaceUp
        stacker-1 OutputBin=Stacker'''),
    # All that is sent together as "finishings".
    [(['-o', f'StapleLocation={staple}', '-o', f'PunchMedia={punch}', '-o', f'FoldType={fold}'],
      [*ofStaple, *ofPunch, *ofFold])
     for staple, ofStaple in (('None', []), ('SinglePortrait', ['Staple=TopLeft']),
                              ('SingleLandscape', ['Staple=TopRight']),
                              ('DualPortrait', ['Staple=DualLeft']))
     for punch, ofPunch in (('None', []), ('DualPortrait', ['Punch=TwoHoles']),
                            ('TriplePortrait', ['Punch=ThreeHoles']),
                            ('QuadPortrait', ['Punch=FourHoles']))
     for fold, ofFold in (('None', []), ('Half', ['Fold=Half']), ('Letter', ['Fold=Letter']))]
    + named('cupsFinishingTemplate', '''
        JogOffset JobOffset=On
        StapleTopLeft Staple=TopLeft
        PunchQuadLeft Punch=FourHoles
        FoldHalf Fold=Half''') * 3 + [
        # Presets: a value of the job takes precedence, but not a default value.
        (['-o', 'cupsFinishingTemplate=Draft'],
         ['<Duplex=LongEdge', '<NumberUp=2', '<EconoMode=On', '<PrintDensity=2']),
        (['-o', 'cupsFinishingTemplate=Handout'],
         ['<Duplex=LongEdge', '<Staple=TopLeft', '<OutputBin=Stacker']),
        (['-o', 'cupsFinishingTemplate=Archive'],
         ['<Resolution=1200dpi', '<EdgeSmoothing=Dark', '<Punch=TwoHoles'])] * 4,
    copies('Copies={}'),
    # Qualities that this printer does not have change nothing.
    named('cupsPrintQuality', '''
        Draft
        Normal
        High''') + named('print-quality', '3\n5'),
    PAGES,
]
OFFICE_DEFAULTS = {'Duplex': 'OneSided', 'OutputBin': 'Top', 'Staple': 'None', 'Punch': 'None'}

LABELS = [
    named('PageSize', '''
        40x150mm.Borderless RollWidth=40mm LabelLength=150
        58x150mm.Borderless RollWidth=58mm LabelLength=150
        80x150mm.Borderless RollWidth=80mm LabelLength=150
        104x150mm.Borderless RollWidth=104mm LabelLength=150'''),
    named('MediaType', '''
        LabelsThermalDirect PrintMethod=DirectThermal
        LabelsThermalTransfer PrintMethod=ThermalTransfer'''),
    [(['-o', 'cupsFinishingTemplate=Shipping'],
      ['<RollWidth=104mm', '<LabelLength=150', '<Cutter=EveryLabel']),
     (['-o', 'cupsFinishingTemplate=Barcode'],
      ['<Resolution=300dpi', '<Speed=2', '<Darkness=5'])],
    copies('Copies=1', 9),
    PAGES,
]
LABELS_DEFAULTS = {'RollWidth': '80mm', 'LabelLength': '150'}

FLOOR = [
    named('PageSize', '''
        A3 PageSize=A3
        A4 PageSize=A4
        A5 PageSize=A5
        Env10 PageSize=Env10
        Executive PageSize=Executive
        Legal PageSize=Legal
        Letter PageSize=Letter
        Tabloid PageSize=Tabloid''') + named('media', '''
        na_number-10_4.125x9.5in PageSize=Env10
        A3 PageSize=A3'''),
    named('InputSlot', '''
        Auto InputSlot=Auto
        Tray1 InputSlot=Tray1
        Tray2 InputSlot=Tray2
        Tray3 InputSlot=Tray3
        ByPassTray InputSlot=MPTray
        Manual InputSlot=Manual'''),
    named('MediaType', '''
        Stationery MediaType=Plain
        StationeryRecycled MediaType=Recycled
        StationeryHeavyweight MediaType=Thick
        Labels MediaType=Labels
        Transparency MediaType=Transparency'''),
    twoSided('Duplex=None', 'Duplex=DuplexNoTumble', 'Duplex=DuplexTumble'),
    named('ColorModel', '''
        Gray ColorModel=Gray
        RGB ColorModel=CMYK'''),
    named('OutputBin', '''
        Top OutputBin=Upper
        Bottom OutputBin=Lower
        FaceUp OutputBin=FaceUp'''),
    [(['-o', f'StapleLocation={staple}', '-o', f'PunchMedia={punch}'], [*ofStaple, *ofPunch])
     for staple, ofStaple in (('None', []), ('SinglePortrait', ['StapleLocation=UpperLeft']),
                              ('SingleLandscape', ['StapleLocation=UpperRight']),
                              ('DualPortrait', ['StapleLocation=DualLeft']))
     for punch, ofPunch in (('None', []), ('DualPortrait', ['HolePunch=2Hole']),
                            ('TriplePortrait', ['HolePunch=3Hole']))]
    + named('cupsFinishingTemplate', '''
        StapleTopLeft StapleLocation=UpperLeft
        PunchTripleLeft HolePunch=3Hole'''),
    named('cupsPrintQuality', '''
        Draft cupsPrintQuality=Draft
        Normal cupsPrintQuality=Normal
        High cupsPrintQuality=High''') + named('print-quality', '''
        3 cupsPrintQuality=Draft
        5 cupsPrintQuality=High'''),
    copies(''),
    PAGES,
]

OFFICE_IMPORT = [
    named('PageSize', '''
        A4.Borderless PageSize=A4
        A5.Borderless PageSize=A5''') + named('media', '''
        Custom.4x6in PageSize=Custom PageSize.Width=288 PageSize.Height=432
        Custom.5x7in PageSize=Custom PageSize.Width=360 PageSize.Height=504'''),
    twoSided('Duplex=None', 'Duplex=DuplexNoTumble', 'Duplex=DuplexTumble'),
    copies(''),
    PAGES,
]

RULES = [
    named('PageSize', '''
        A3 PageSize=A3
        A4 PageSize=A4
        A5.Borderless PageSize=A5'''),
    named('InputSlot', '''
        Tray1 InputSlot=Tray1
        Tray2 InputSlot=Tray2'''),
    named('MediaType', '''
        Stationery MediaType=Plain
        Transparency MediaType=Film
        StationeryHeavyweight MediaType=Thick'''),
    twoSided('Duplex=None', 'Duplex=DuplexNoTumble', 'Duplex=DuplexTumble'),
    copies(''),
    PAGES,
]

# Name, description, groups, defaults of what presets set.
QUEUES = [
    ('office', 'descriptions/office_laser.xml', OFFICE, OFFICE_DEFAULTS),
    ('labels', 'descriptions/label_printer.xml', LABELS, LABELS_DEFAULTS),
    ('floor', 'tests/printing/trial/floor.ppd', FLOOR, {}),
    ('imported', 'tests/printing/office.ppd', OFFICE_IMPORT, {}),
    ('rules', 'tests/printing/rules.ppd', RULES, {}),
]


def settingsOf(chosen, defaults):
    """The settings of a job from those of its groups; those with "<" are of a preset."""
    settings, presets = {}, {}
    for _, ofGroup in chosen:
        for setting in ofGroup:
            name, value = setting.lstrip('<').split('=', 1)
            (presets if setting.startswith('<') else settings)[name] = value
    for name, value in presets.items():
        if settings.get(name, defaults.get(name)) == defaults.get(name):
            settings[name] = value
    return [f'{name}={value}' for name, value in settings.items()]
