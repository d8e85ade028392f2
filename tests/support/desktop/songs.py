"""Test songs: MPEG-1 Layer III files of silence, and a small library of them with the catalogue that it must have."""
import os

# One frame: MPEG-1 Layer III, no checksum, 32 kbit/s, 44100 Hz, mono. All-zero side information means silence.
FRAME_SECONDS = 1152 / 44100
FRAME = (b"\xff\xfb\x10\xc0" + bytes(17)).ljust(144 * 32000 // 44100, b"\0")


def write_song(path, seconds=1.0):
    """Writes a silent song of about this length, and its parent folders. The path is a string or bytes."""
    path = os.fsencode(path)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as song:
        song.write(FRAME * max(4, round(seconds / FRAME_SECONDS)))


def enlarge(path, megabytes):
    """Enlarges a song as a sparse file with some data in each megabyte, so that a missing one is noticed."""
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

NOT_UTF8 = b"Caf\xe9 Noir - Derni\xe8re danse.mp3"

# File names of every kind.
SPECIAL_NAMES = [
    "Intro.mp3",  # no hyphen
    "Los Faros - Costa Sur - Faro del Norte.mp3",  # two hyphens
    "Trio Nord - Live in Bergen - Encore - Bonus.mp3",  # three: the last part and the extension are dropped
    "Trio Nord - Fjord.mp3",
    "Marlow, Reed & Sons - Rain, Rain.mp3",  # commas
    'The "Quiet" Ones - Say "Hello".mp3',  # double quotes
    "東京カルテット - 夜の電車.mp3",  # Japanese
    "فرقة النور - ليلة صيف.mp3",  # Arabic, right to left
    "להקת הים - שיר ערב.mp3",  # Hebrew, right to left
    NOT_UTF8,
    "blue harbour - Low Water.MP3",  # the artist in lower case, the extension in upper case
    "Kestrel - Gliding.Mp3",
]
NOT_SONGS = ["Kestrel - Not This One.mP3", "cover.jpg", "notes.txt"]

# These songs are played to the end.
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
    for name in SPECIAL_NAMES:
        write_song(os.path.join(os.fsencode(root), b"Singles", os.fsencode(name)), 0.5)
    for name in NOT_SONGS:
        write_song(os.path.join(root, "Singles", name), 0.2)
    write_song(os.path.join(deep_folder(root, 10), "Deep Water - Ten Folders Down.mp3"), 0.5)
    write_song(os.path.join(deep_folder(root, 11), "Deep Water - Eleven Folders Down.mp3"), 0.5)


def fold(name):
    return name.decode("utf-8", "surrogateescape").casefold().encode("utf-8", "surrogateescape")


def expected_catalogue(root):
    """The bytes that plimo.kvx must contain after a scan of the folder, computed independently of the program."""
    text = bytearray()

    def visit(folder, depth):
        names = sorted(os.listdir(folder), key=fold)
        for name in names:
            path = os.path.join(folder, name)
            if os.path.isfile(path) and name[-3:] in (b"mp3", b"MP3", b"Mp3"):
                for value in (path, *record(name)):
                    text.extend(b'"' + value.replace(b'"', b'""') + b'"\r\n')
        for name in names:
            path = os.path.join(folder, name)
            if depth > 0 and os.path.isdir(path):
                visit(path, depth - 1)

    visit(os.fsencode(root), 10)
    return bytes(text)


def record(name):
    """Artist, second part and title of a file name."""
    pieces = name.split(b"-")
    if len(pieces) == 1:
        return b"Miscellaneous", b"Don't Know!", name
    if len(pieces) == 2:
        return pieces[0].strip(b" "), b"Don't know!", pieces[1]
    return pieces[0].strip(b" "), pieces[1], pieces[2]


def library_artists(root):
    """The rows of the artist list for the folder, in order."""
    artists = set()
    for folder, _, files in os.walk(os.fsencode(root)):
        if folder[len(os.fsencode(root)):].count(b"/") > 10:
            continue
        for name in files:
            if name[-3:] in (b"mp3", b"MP3", b"Mp3"):
                artists.add(record(name)[0].upper())  # of bytes, so only a to z are changed
    # The window shows invalid bytes as replacement characters.
    return [artist.decode("utf-8", "replace") for artist in sorted(artists, key=fold)]
