#!/usr/bin/env python3
"""Writes the files of samples/. The same bytes come out on every run."""

import binascii
import datetime
import math
import pathlib
import random
import struct

SAMPLES = pathlib.Path(__file__).resolve().parent.parent / "samples"
EPOCH = datetime.datetime(1989, 1, 1)


def diurnal(when, mean, swing, peak_hour=15.0):
    """A day's wave that is highest at peak_hour."""
    hour = when.hour + when.minute / 60
    return mean + swing * math.cos((hour - peak_hour) / 24 * 2 * math.pi)


def times(start, step_minutes, count):
    begin = datetime.datetime.fromisoformat(start)
    return [begin + datetime.timedelta(minutes=step_minutes * i) for i in range(count)]


def stamp(when, fraction="0.000000"):
    return f"{when:%Y/%m/%d},{when:%H:%M:%S},{fraction}"


def crc16(data):
    crc = 0
    for byte in data:
        crc ^= byte
        for _ in range(8):
            crc = crc >> 1 ^ (0xA001 if crc & 1 else 0)
    return crc


def write(name, lines, end="\r\n"):
    data = "".join(line + end for line in lines).encode("utf-8")
    (SAMPLES / name).write_bytes(data)
    return data


def replay_header(description, origin, data_map, kind="Data"):
    return ["<Crypt>No</Crypt>", f"<Type>{kind}</Type>",
            f'<Description>"{description}"</Description>',
            f'<IDATA_MAP type="{origin}">', data_map, "</IDATA_MAP>", "<ALL_DATA>"]


def map10(name, schedules):
    """A data map of format 11: schedules are (letter, rate, [(name, units, kind)])."""
    text = f'S,081044,2008/06/01,08:15:30,0.000488,11:0,4,1,0,"{name}",'
    for letter, rate, channels in schedules:
        entries = "".join(f',<"{label}","{units}",{kind},0,8,4,1>'
                          for label, units, kind in channels)
        text += f'<{letter},"{rate}"S",G{entries}>'
    return text + ":"


def map14(name, schedules):
    """A data map of format 14, with the log flag in the ninth field."""
    text = f'S,081377,2008/09/01,07:00:00,0.000122,14;0,4,1,0,7,"{name}",'
    for letter, rate, channels in schedules:
        entries = "".join(f',<"{i + 1}","{label}","{units}",0,0,{kind},0,0,"{log}",0>'
                          for i, (label, units, kind, log) in enumerate(channels))
        text += f'<{letter},"{rate}"S",G{entries}>'
    return text + ":"


def with_status(values, status="$0"):
    return ",".join(f"{value},{status}" for value in values)


class Weather:
    """Air over a hill: values that belong together."""

    def __init__(self, seed):
        self.random = random.Random(seed)
        self.pressure = 1013.0

    def at(self, when):
        noise = self.random.gauss
        self.pressure += noise(0, 0.08)
        temperature = diurnal(when, 14.2, 6.1) + noise(0, 0.25)
        humidity = min(100.0, max(20.0, 118 - 3.1 * temperature + noise(0, 1.5)))
        wind = max(0.0, diurnal(when, 4.6, 2.2, 14) + noise(0, 0.8))
        direction = (225 + 35 * math.sin((when - EPOCH).total_seconds() / 40000) + noise(0, 8)) % 360
        return temperature, humidity, wind, wind * 1.4 + abs(noise(0, 0.9)), direction


MAST = map10("mast7", [
    ("A", "10M", [("Air", "degC(Ave)", 0), ("Humidity", "%(Ave)", 0), ("Wind", "m/s(Ave)", 0),
                  ("Wind", "m/s(Max)", 0), ("Gust", "(Tmx)", 1), ("Direction", "deg", 0),
                  ("Pressure", "hPa", 0)]),
    ("B", "1H", [("Rain", "mm(Int)", 0), ("Battery", "V(Min)", 0)])])


def mast_lines(start, count, seed):
    weather = Weather(seed)
    dice = random.Random(seed + 1)
    lines = []
    for index, when in enumerate(times(start, 10, count)):
        air, humidity, wind, gust, direction = weather.at(when)
        seen = when - datetime.timedelta(seconds=dice.randrange(600))
        if 95 <= index < 101:
            continue  # the mast was down for service
        shown = "99999.9" if 180 <= index < 186 else f"{air:.2f}"
        fields = with_status([shown, f"{humidity:.1f}", f"{wind:.2f}", f"{gust:.2f}",
                              f"{seen:%H:%M:%S}", f"{direction:.0f}", f"{weather.pressure:.1f}"])
        lines.append(f'D,081044,"MAST7",{stamp(when, "0.000488")},1:A,0,{fields}')
        if when.minute == 0:
            rain = dice.choice([0, 0, 0, 0.2, 1.4])
            battery = diurnal(when, 12.7, 0.5, 13)
            fields = with_status([f"{rain:.1f}", f"{battery:.3f}"])
            lines.append(f'D,081044,"MAST7",{stamp(when, "0.000488")},1:B,0,{fields}')
    return lines


def weather_mast():
    header = replay_header("Weather mast 7, Harrow Hill", "ql5xx", MAST)
    write("weather-mast.dlr", header + mast_lines("2008-06-25", 432, 7))


def generated_session():
    dice = random.Random(11)
    entries = "".join(f',<"{name}","{units}",0,0,8,4,1>'
                      for name, units in [("Boiler", "C"), ("Return", "C"), ("Gas", "m3/h")])
    lines = ["Descriptor", 'Name "Hembric"', "Lock N", 'Desc "Boiler house February"',
             "EndDescriptor", "", "<IDATA_MAP>",
             f'S,0,0,10:0,1989,1,0,"",<A,"60lS",G{entries}>'
             + "".join(f"<{letter}>" for letter in "BCDEFGHIJKXV") + ">:", "", "<ALL_DATA>"]
    for when in times("2008-02-25T06:00", 1, 360):
        boiler = 68 + 9 * math.sin((when - EPOCH).total_seconds() / 700) + dice.gauss(0, 0.8)
        values = (boiler, boiler - 19 + dice.gauss(0, 0.5), max(0, (80 - boiler) * 1.7))
        fields = "".join(f",{value:.0f}.,$0l" for value in values)
        lines.append(f"D,0,{stamp(when)},1:A,0{fields}:")
    write("generated-session.dlr", lines, "\n")


def reservoir():
    dice = random.Random(14)
    data_map = map14("lake2", [
        ("X", "15M", [("Level", "m(Ave)", 0, 1), ("Inflow", "m3/s(Ave)", 0, 3),
                      ("Spare", "mV", 0, 2)]),
        ("A", "1H", [("Gate", "%", 0, 1), ("Turbidity", "NTU(Max)", 0, 1)])])
    lines = replay_header("Upper reservoir, intake tower", "ql810", data_map)
    level = 41.35
    for index, when in enumerate(times("2008-09-08", 15, 480)):
        inflow = max(0.2, diurnal(when, 3.4, 0.9, 5) + dice.gauss(0, 0.15)
                     + 9 * math.exp(-((index - 210) / 30) ** 2))
        level += (inflow - 3.5) * 0.0021
        if 330 <= index < 338:
            continue  # the radio link was lost
        lines.append(f'D,081377,{stamp(when, "0.000122")},1:X,0,{level:.3f},{inflow:.2f}')
        if when.minute == 0:
            gate = 20 if inflow < 6 else 65
            turbidity = 4 + 2.4 * inflow + dice.gauss(0, 0.6)
            lines.append(f'D,081377,{stamp(when, "0.000122")},1:A,0,{gate}.0,{turbidity:.1f}')
    write("reservoir.dlr", lines)


def cold_store_alarms():
    dice = random.Random(21)
    texts = [(3, "Door open longer than 5 min"), (7, "Room 3 above -18 degC"),
             (8, "Room 4 above -18 degC"), (12, "Compressor 1 oil pressure low"),
             (20, "Mains supply lost")]
    lines = replay_header("Cold store, rooms 3 and 4", "ql5xx", MAST, "Alarm")
    when = datetime.datetime(2008, 7, 1, 0, 4, 12)
    for _ in range(90):
        number, text = dice.choice(texts)
        kind = "COLD3" if number < 10 else "PLANT"
        for state, suffix in ((1, ""), (2, " cleared")):
            lines.append(f'A,081102,"{kind}",{stamp(when, "0.250000")},0:A,{number},{state},'
                         f'"{text}{suffix}"')
            when += datetime.timedelta(seconds=dice.randrange(40, 3000))
        when += datetime.timedelta(seconds=dice.randrange(300, 9000))
    write("cold-store-alarms.dlr", lines)


def numeric_time():
    dice = random.Random(33)
    data_map = map10("soil", [("A", "5M", [("Soil 10 cm", "degC", 0), ("Soil 50 cm", "degC", 0),
                                           ("Moisture", "%vol", 0)])])
    lines = replay_header("Soil station, times as numbers", "ql5xx", data_map)
    moisture = 31.0
    for when in times("2008-03-03", 5, 400):
        seconds = int((when - EPOCH).total_seconds())
        moisture -= 0.004 + abs(dice.gauss(0, 0.003))
        values = (diurnal(when, 8.1, 3.2, 17) + dice.gauss(0, 0.05),
                  diurnal(when, 7.4, 0.3, 3), moisture)
        fields = ",".join(f"{value:.2f}" for value in values)
        lines.append(f"D,081209,{seconds},1:A,0,{fields}")
    write("numeric-time.dlr", lines)


def checked_lines():
    lines = replay_header("Weather mast 7, lines with checksums, two of them damaged", "ql5xx",
                          MAST)
    for index, line in enumerate(mast_lines("2008-06-28", 200, 9)):
        line += ";"
        marked = f"{line}{crc16(line.encode()):04X}"
        if index == 40:
            marked = marked.replace(",1:A,0,", ",1:A,0,1", 1)
        if index == 120:
            marked = marked[:-4] + "0BAD"
        lines.append(marked)
    write("checked-lines.dlr", lines)


def signed_mast():
    header = replay_header("Weather mast 7, signed", "ql5xx", MAST)
    data = write("signed-mast.dlr", header + mast_lines("2008-06-20", 144, 5))
    # The viewer keeps as many of the last characters as the folders differ in length; with this
    # long way round to the same file the samples verify wherever they are copied.
    location = "./" * 64 + "signed-mast.dlr"
    write("signed-mast.sig", ["<SignatureFile>", "<Version>1</Version>",
                              "<Created>2008/06/21 09:30:00</Created>",
                              f"<CRC32>{binascii.crc32(data):08X}</CRC32>",
                              f"<OrigLocation>{location}</OrigLocation>",
                              "<Signature>J. Marlow, Harrow Hill</Signature>"])


def pump_station():
    dice = random.Random(41)
    lines = ["Time,Sump (m),Pump 1 (A),Pump 2 (A),Flow (l/s),Mode"]
    sump, running = 1.2, False
    for when in times("2008-05-12", 5, 576):
        sump += max(0.0, diurnal(when, 0.035, 0.03, 19)) - (0.11 if running else 0)
        running = sump > 2.4 or (running and sump > 0.9)
        current = 14.2 + dice.gauss(0, 0.3) if running else 0.0
        second = 13.7 + dice.gauss(0, 0.3) if sump > 2.7 else 0.0
        flow = 38 + dice.gauss(0, 1.1) if running else 0.0
        shown = "" if dice.random() < 0.01 else f"{sump:.3f}"
        mode = '"auto, night"' if when.hour < 6 else "auto"
        lines.append(f"{when:%Y/%m/%d %H:%M:%S},{shown},{current:.1f},{second:.1f},{flow:.2f},"
                     f"{mode}")
        if when.hour == 12 and when.minute == 0:
            lines.append("Discontinuity,,,,,")
    write("pump-station.csv", lines, "\n")


def greenhouse():
    dice = random.Random(52)
    lines = ["Time;Air (°C);Humidity (%);Light (klx);CO2 (ppm)"]
    for when in times("2008-04-01", 10, 432):
        light = max(0.0, diurnal(when, 8, 42, 12.5) + dice.gauss(0, 1.5))
        values = (diurnal(when, 21.5, 4.5) + dice.gauss(0, 0.2), diurnal(when, 71, -14),
                  light, 690 - 5.5 * light + dice.gauss(0, 6))
        fields = ";".join(f"{value:.1f}".replace(".", ",") for value in values)
        lines.append(f"{when:%Y/%m/%d %H:%M:%S};{fields}")
    write("greenhouse-decimal-comma.csv", lines)


def tank_farm():
    dice = random.Random(63)
    lines = ["Time\tTank 1 (m3)\tTank 2 (m3)\tTank 1 (degC)\tNote"]
    first, second = 420.0, 610.0
    for index, when in enumerate(times("2008-10-20", 15, 384)):
        first += 4.5 if 60 <= index < 110 else -0.62
        second -= 0.35 + abs(dice.gauss(0, 0.05))
        note = "delivery" if index == 60 else ""
        lines.append(f"{when:%Y/%m/%d %H:%M:%S}\t{first:.1f}\t{second:.1f}\t"
                     f"{diurnal(when, 12.3, 2.1, 16):.2f}\t{note}")
    write("tank-farm.txt", lines)


def borehole_download():
    dice = random.Random(74)
    lines = ["<start>08/11/03 09:00:00</start>", "<end>08/11/07 03:45:00</end>",
             "<site>Borehole 12</site>", "<serial>004711</serial>",
             "<log interval>0000000 00:15:00</log interval>",
             "Depth (m),Conductivity (uS/cm),Temperature (degC)", "<data>"]
    for when in times("2008-11-03T09:00", 15, 364):
        depth = 23.4 + 0.12 * math.sin((when - EPOCH).total_seconds() / 7200) + dice.gauss(0, 0.004)
        lines.append(f">{depth:.3f}>{512 + dice.gauss(0, 2):.0f}>{9.8 + dice.gauss(0, 0.02):.2f}")
    write("borehole-download.txt", lines + ["</data>"])


class BinaryFile:
    """A logger's binary data file; every number is big-endian."""

    FLOAT, INTEGER, TEXT, TIME = 1, 2, 3, 4
    NOT_YET_SET, OVERRANGE = 2, 3

    @staticmethod
    def microseconds(when):
        return round((when - EPOCH).total_seconds() * 1_000_000)

    @staticmethod
    def section(tag, contents):
        return tag + struct.pack(">I", len(contents)) + contents

    @staticmethod
    def item(kind, value, status=1):
        if kind == BinaryFile.TEXT:
            data = value.encode("cp1252") + b"\0"
        else:
            data = struct.pack({1: ">f", 2: ">i", 4: ">Q"}[kind], value)
        return struct.pack(">BBI", 4 + len(data), kind << 4 | status, 0) + data

    @staticmethod
    def channel(name, units, form=""):
        return struct.pack(">32s16s16sHH12x", name.encode(), units.encode("cp1252"),
                           form.encode(), 0, 0)

    @staticmethod
    def data_record(when, items):
        return struct.pack(">HQ", 0, BinaryFile.microseconds(when)) + b"".join(items)

    @staticmethod
    def alarm_record(when, number, kind, text):
        return (struct.pack(">HQBB", number, BinaryFile.microseconds(when), number, kind) +
                text.encode("cp1252") + b"\0")

    @staticmethod
    def ring(records, oldest):
        """Descriptor and slots of records, the first of which stands in slot `oldest`."""
        size = max(len(record) for record in records)
        slots = [record.ljust(size, b"\0") for record in records]
        slots = slots[len(slots) - oldest:] + slots[:len(slots) - oldest]
        newest = (oldest - 1) % len(slots)
        return struct.pack(">IiI", size, oldest, newest), b"".join(slots)

    @staticmethod
    def whole(letter, channels, data, alarms):
        header = bytes(36) + struct.pack(">II", ord(letter), 0)
        section = BinaryFile.section
        return section(b"DTDT", section(b"HDR1", header) +
                       section(b"DHDR", data[0] + struct.pack(">I", len(channels)) +
                               b"".join(channels)) +
                       section(b"AHDR", alarms[0]) + section(b"DATA", data[1]) +
                       section(b"ALRM", alarms[1]) + section(b"EOF!", b""))


def tank_gauge():
    dice = random.Random(85)
    b = BinaryFile
    channels = [b.channel("Level", "m"), b.channel("Product temp", "degC"),
                b.channel("Deliveries", "", "%d"), b.channel("Valve", ""),
                b.channel("Last delivery", "")]
    records, alarms = [], []
    level, deliveries, delivered, filling = 1.9, 12, None, False
    for index, when in enumerate(times("2008-11-10", 20, 300)):
        filling = level < 1.2 or (filling and level < 4.6)
        if filling and (delivered is None or level < 1.2):
            deliveries, delivered = deliveries + 1, when
            alarms.append(b.alarm_record(when, 2, 1, "Tank 4 below 1.2 m"))
        level += 0.52 if filling else -0.021 + dice.gauss(0, 0.003)
        warm = diurnal(when, 11.4, 1.2, 17) + dice.gauss(0, 0.03)
        if filling and level >= 4.6:
            alarms.append(b.alarm_record(when, 3, 1, "Tank 4 full"))
        last = (b.item(b.TIME, b.microseconds(delivered)) if delivered
                else b.item(b.TIME, 0, b.NOT_YET_SET))
        records.append(b.data_record(when, [
            b.item(b.FLOAT, level, b.OVERRANGE if 140 <= index < 143 else 1),
            b.item(b.FLOAT, warm), b.item(b.INTEGER, deliveries),
            b.item(b.TEXT, "filling, pump 2" if filling else "closed"), last]))
    data = b.whole("A", channels, b.ring(records, 87), b.ring(alarms, 2))
    (SAMPLES / "tank-gauge.dbd").write_bytes(data)


def main():
    SAMPLES.mkdir(exist_ok=True)
    for make in (weather_mast, generated_session, reservoir, cold_store_alarms, numeric_time,
                 checked_lines, signed_mast, pump_station, greenhouse, tank_farm,
                 borehole_download, tank_gauge):
        make()


if __name__ == "__main__":
    main()
