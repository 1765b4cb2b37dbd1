"""What each measured work may cost: one row per judged pair of benchmarks.

The ratio of a row is the time of `ours` over the time of `reference`, both measured in one run.
Names with a slash are benchmarks, the others what the driver host reports.
A row that compares a work with itself at a tenth of the size says that it grows linearly: 10 and
what a larger memory costs; work that grows as the square would give 100.
"""

from typing import NamedTuple


class Budget(NamedTuple):
    work: str
    ours: str
    reference: str
    ratio: float


BUDGETS = [
    Budget("merge a defaulted block / memcpy", "merge/defaulted", "merge/memcpy", 5),
    Budget("merge all texts full / plainly", "merge/full", "merge/full_plain", 1 / 3),
    Budget("load a full favourite / GKeyFile", "favorites/load", "favorites/load_gkeyfile", 1 / 4),
    Budget("load a full favourite / inih", "favorites/load", "favorites/load_inih", 1),
    Budget("load and save / GKeyFile", "favorites/save_fresh", "favorites/save_gkeyfile", 1 / 3),
    Budget("re-save over old items / GKeyFile", "favorites/resave", "favorites/save_gkeyfile", 1),
    Budget("open 1,000 favourites / read(2)", "favorites/open_1000", "favorites/read_1000", 1),
    Budget("10,000 favourites / 1,000", "favorites/folder_10000", "favorites/folder_1000", 15),
    Budget("restriction check / libcups", "restriction/check", "restriction/libcups", 1 / 20),
    Budget("profile of 100,000 lines / memchr", "profile/lines_100000", "profile/memchr_100000", 5),
    Budget("profile, 100,000 lines / 10,000", "profile/lines_100000", "profile/lines_10000", 15),
    Budget("load, merge and unload / empty DLL", "load", "empty module", 1.5),
    Budget("open the sheet / with empty pages", "open", "empty pages", 1.3),
    Budget("companion loads of a page / 1", "companion loads of a page", "loads needed", 1),
    Budget("choose of 1,000 / read and refill", "choose of 1000", "read and refill", 2),
    Budget("choose of 10,000 / read and refill", "choose of 10000", "read and refill", 2),
    Budget("page waits for 1,000 / read them", "wait for 1000", "read 1000", 1),
    Budget("page waits for 10,000 / for 1,000", "wait for 10000", "wait for 1000", 15),
]
