"""Runs the benchmarks and prints a table, each row beside its yardstick of the same run.

    table.py BUILD [options of Google Benchmark]

The table is written as BUILD/bench.json, too. With VEYRA_FLUSH_MS or VEYRA_READ_MS the programs meet
a disk that is slow.
"""

import json
import os
import re
import resource
import subprocess
import sys

# A row, and the row that is its yardstick. The yardsticks are never moved.
YARDSTICKS = [
    (r"Series/\w+/(\d+)/(\d+)", r"RowsAddedByHand/\1/\2"),
    (r"(?:Deleted|Renamed)Series/\w+/(\d+)/(\d+)", r"RowsAddedByHand/\1/\2"),
    (r"DeletedFacility/\w+/(\d+)", r"RowsDeletedByHand/\1"),
    (r"CheckOfSeries/\w+/(\d+)/(\d+)", r"DatesCheckedByHand/\1/\2"),
    (r"Month/\w+/(\d+)", r"MonthByHand/\1"),
    (r"OneBooking/\w+/(\d+)", r"RowAddedByHand/\1"),
    (r"Memory/\w+/(\d+)", r"MemoryByHand/\1"),
    (r"GuestList/\w+", r"GuestListByHand"),
    (r"PageTurn", "PageTurnOfBareLists"),
    (r"DayOpened/(\d+)", r"BareDayOpened/\1"),
    (r"Start", "BareStart"),
    (r"MonthThroughRecordsets/(\d+)", r"MonthThroughOneStatement/\1"),
    (r"Conversion/\w+/(\d+)", r"RowsCopiedByHand/\1"),
    (r"Check/(\w+)/(\d+)", r"FileReadOnce/\1/\2"),
    (r"FirstMonth|NextMonth|BookingAndItsMonth", "CalendarFileReadOnce"),
    (r"GuestNames", "GuestNamesByMdbExport"),
]
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def run(program, slow_disk, options):
    """The benchmark's own report; a row for each measurement, the best of its repetitions."""
    environment = dict(os.environ)
    if "VEYRA_FLUSH_MS" in environment or "VEYRA_READ_MS" in environment:
        environment["LD_PRELOAD"] = slow_disk
    ended = subprocess.run([program, "--benchmark_format=json", *options], env=environment,
                           stdout=subprocess.PIPE, check=True)
    return json.loads(ended.stdout) if ended.stdout else {"benchmarks": []}


def plain_name(name):
    return re.sub(r"/(manual_time|real_time|iterations:\d+|repeats:\d+)", "", name)


def best_times(report):
    times = {}
    for row in report["benchmarks"]:
        if row.get("run_type") != "aggregate" and "real_time" in row:
            name = plain_name(row["name"])
            time = row["real_time"] * NANOSECONDS[row["time_unit"]]
            times[name] = min(time, times.get(name, time))
    return times


def yardstick_of(name):
    for pattern, yardstick in YARDSTICKS:
        if re.fullmatch(pattern, name):
            return re.sub(pattern, yardstick, name)
    return None


def memory_of(report):
    return {plain_name(row["name"]): row["kilobytes"] for row in report["benchmarks"]
            if "kilobytes" in row}


def rows_of(report):
    """Times, and for rows about memory that instead."""
    memory = memory_of(report)
    times = {name: time for name, time in best_times(report).items() if name not in memory}
    for unit, figures in (("nanoseconds", times), ("kilobytes", memory)):
        for name, figure in figures.items():
            yardstick = yardstick_of(name)
            ratio = figure / figures[yardstick] if figures.get(yardstick, 0) > 0 else None
            yield {"row": name, unit: figure, "yardstick": yardstick, "ratio": ratio}


def shown(row):
    if "kilobytes" in row:
        return f"{row['kilobytes'] / 1024:.1f} MB"
    return shown_time(row["nanoseconds"])


def shown_time(nanoseconds):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("us", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.2f} {unit}"
    return f"{nanoseconds:.0f} ns"


def main():
    build, options = sys.argv[1], sys.argv[2:]
    folder = os.path.join(build, "tests", "bench")
    slow_disk = os.path.abspath(os.path.join(folder, "libveyra_slow_disk.so"))
    table = []
    for program in sorted(os.listdir(folder)):
        if not program.endswith("_bench"):
            continue
        for row in rows_of(run(os.path.join(folder, program), slow_disk, options)):
            table.append(row)
            beside = f"{row['ratio']:6.2f} x {row['yardstick']}" if row["ratio"] else ""
            print(f"{row['row']:48} {shown(row):>12} {beside}", flush=True)
    memory = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss
    print(f"{'most memory of a program':48} {memory / 1024:9.0f} MB")
    with open(os.path.join(build, "bench.json"), "w", encoding="utf-8") as file:
        json.dump({"rows": table, "memory_kilobytes": memory}, file, indent=1)


if __name__ == "__main__":
    main()
