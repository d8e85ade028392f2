"""Small real songs: MPEG-1 Layer III files of silence, and the library that the tour and the window's tests play with."""
import os

# One frame: MPEG-1 Layer III, no checksum, 32 kbit/s, 44100 Hz, one channel. A side information of zeros says that
# no sound follows: silence.
FRAME_SECONDS = 1152 / 44100
FRAME = (b"\xff\xfb\x10\xc0" + bytes(17)).ljust(144 * 32000 // 44100, b"\0")


def write_song(path, seconds=1.0):
    """Writes a silent song of about so many seconds; the folders on the way are made. Names are bytes or text."""
    path = os.fsencode(path)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as song:
        song.write(FRAME * max(4, round(seconds / FRAME_SECONDS)))


def enlarge(path, megabytes):
    """Makes a song so large, mostly by a hole, with something in each megabyte that would be missed."""
    with open(path, "r+b") as song:
        for number in range(megabytes):
            song.seek((number << 20) + (1 << 19))
            song.write(b"megabyte %d" % number)
        song.truncate(megabytes << 20)


PLAIN = {
    "Anna Berg": "Morning Light,First Snow,Letters Home,Paper Boats,The Long Way Round,Under the Lime Trees",
    "Blue Harbour": "Night Ferry,Salt,Lighthouse,Two Tides,Anchor Song",
    "Carla Mendes": "Rua Velha,Saudade,Maré Alta,Domingo",
    "Delta Seven": "Signal,Orbit,Slow Rocket,Mission Control",
    "Elias Okafor": "Harmattan,Lagos by Night,Market Day,Sunday Shoes",
    "Fenwick & Daughters": "Corn Dolly,The Miller's Reel,Three Ravens",
    "Gran Teatro": "Overture,Second Act,Curtain Call",
    "Hollow Pines": "Kindling,Smoke,Ember,Ash",
    "Ida Lindqvist": "Midsommar,Norrsken,Vinterresa",
    "Jonas Weir": "Half a Mile,Gravel Road,Tin Roof,Kitchen Radio",
    "Kestrel": "Thermal,Windhover",
    "Lowlands Quartet": "Canal,Polder,Dyke,Windmill",
    "Zoë Müller": "Frühlingslied,Über den Dächern",
}

NO_TEXT = b"Caf\xe9 Noir - Derni\xe8re danse.mp3"  # bytes that are no UTF-8

# Names of every shape, each with what is special about it.
SHAPES = [
    "Intro.mp3",  # no hyphen
    "Los Faros - Costa Sur - Faro del Norte.mp3",  # two hyphens
    "Trio Nord - Live in Bergen - Encore - Bonus.mp3",  # three: the last piece, and the ending, are lost
    "Trio Nord - Fjord.mp3",
    "Marlow, Reed & Sons - Rain, Rain.mp3",  # commas
    'The "Quiet" Ones - Say "Hello".mp3',  # double quotes
    "東京カルテット - 夜の電車.mp3",  # Japanese
    "فرقة النور - ليلة صيف.mp3",  # Arabic, from right to left
    "להקת הים - שיר ערב.mp3",  # Hebrew, from right to left
    NO_TEXT,
    "blue harbour - Low Water.MP3",  # an artist in another case, an ending in capitals
    "Kestrel - Gliding.Mp3",
]
NOT_SONGS = ["Kestrel - Not This One.mP3", "cover.jpg", "notes.txt"]

# The songs that are played to their end.
PLAYED = ["Morning Light", "First Snow", "Letters Home"]
PLAYED_SECONDS = 3


def deep_folder(root, levels):
    return os.path.join(root, *(f"level {level}" for level in range(1, levels + 1)))


def make_library(root):
    """Fills the folder with a small library."""
    for artist, titles in PLAIN.items():
        for title in titles.split(","):
            seconds = PLAYED_SECONDS if title in PLAYED else 0.5
            write_song(os.path.join(root, "Albums", artist, f"{artist} - {title}.mp3"), seconds)
    for name in SHAPES:
        write_song(os.path.join(os.fsencode(root), b"Singles", os.fsencode(name)), 0.5)
    for name in NOT_SONGS:
        write_song(os.path.join(root, "Singles", name), 0.2)
    write_song(os.path.join(deep_folder(root, 10), "Deep Water - Ten Folders Down.mp3"), 0.5)
    write_song(os.path.join(deep_folder(root, 11), "Deep Water - Eleven Folders Down.mp3"), 0.5)


def fold(name):
    return name.decode("utf-8", "surrogateescape").casefold().encode("utf-8", "surrogateescape")


def expected_catalogue(root, levels=10):
    """What the catalogue of the folder must be, byte for byte, worked out anew from what is on the disk."""
    text = bytearray()

    def visit(folder, left):
        names = sorted(os.listdir(folder), key=fold)
        for name in names:
            path = os.path.join(folder, name)
            if os.path.isfile(path) and name[-3:] in (b"mp3", b"MP3", b"Mp3"):
                for value in (path, *record(name)):
                    text.extend(b'"' + value.replace(b'"', b'""') + b'"\r\n')
        for name in names:
            path = os.path.join(folder, name)
            if left > 0 and os.path.isdir(path):
                visit(path, left - 1)

    visit(os.fsencode(root), levels)
    return bytes(text)


def record(name):
    """Artist, second part and title of a file's name."""
    pieces = name.split(b"-")
    if len(pieces) == 1:
        return b"Miscellaneous", b"Don't Know!", name
    if len(pieces) == 2:
        return pieces[0].strip(b" "), b"Don't know!", pieces[1]
    return pieces[0].strip(b" "), pieces[1], pieces[2]


def library_artists(root):
    """The artist list's rows for the folder, in their order."""
    artists = set()
    for folder, _, files in os.walk(os.fsencode(root)):
        if folder[len(os.fsencode(root)):].count(b"/") > 10:
            continue
        for name in files:
            if name[-3:] in (b"mp3", b"MP3", b"Mp3"):
                artists.add(record(name)[0].translate(UPPER))
    return [shown(artist) for artist in sorted(artists, key=fold)]


UPPER = bytes(range(97)) + bytes(range(65, 91)) + bytes(range(123, 256))


def shown(name):
    """A name as the window shows it: bytes that are no text become replacement characters."""
    return name.decode("utf-8", "replace")
