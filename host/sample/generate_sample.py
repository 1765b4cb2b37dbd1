#!/usr/bin/env python3
"""Makes the sample printer description, the stand-in companion's table and the inspector's names
from options.txt.

    generate_sample.py options.txt [--english english.txt] [--ppd OUT.ppd] [--table OUT.inc]
                       [--names OUT.inc]

The description is UTF-8 (what portable checkers read), and so are the names; the table holds code
page 932 texts. With the list of English texts all speak English: keywords and option names stay.
"""
import argparse
import re
from dataclasses import dataclass, field

FIRST_STANDARD_ID = 247  # from here on the core driver's own items, not printer keywords
SOURCE_ID = 251
POINTS_PER_MM = 72 / 25.4
MARGIN_MM = 4

HEADER = """\
*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: {language}
*LanguageEncoding: UTF-8
*PCFileName: "ZN5050.PPD"
*Manufacturer: "Zentrik"
*Product: "(ZN Lumera 5050)"
*PSVersion: "(3010.107) 0"
*ModelName: "Zentrik ZN Lumera 5050"
*ShortNickName: "ZN Lumera 5050"
*NickName: "Zentrik ZN Lumera 5050 PS"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: CMYK
*FileSystem: True
*Throughput: "50"
*TTRasterizer: Type42
*FreeVM: "67108864"
*Extensions: DPS FileSystem
*Protocols: TBCP
*LandscapeOrientation: Plus90
*DefaultFont: Courier
*Font Courier: Standard "(002.004S)" Standard ROM
*Font Helvetica: Standard "(001.006S)" Standard ROM
*Font Times-Roman: Standard "(001.007S)" Standard ROM
"""


@dataclass
class Option:
    name: str
    text: str


@dataclass
class Keyword:
    id: int
    name: str
    label: str
    options: list = field(default_factory=list)  # of the printer description
    names: list = field(default_factory=list)  # customary names; texts where there are none
    more: list = field(default_factory=list)  # the companion's further texts
    default: int = 0


@dataclass
class Form:
    name: str
    text: str
    width: float
    height: float


class English:
    """Translates texts; a number of a text stands where the list has a "#"."""

    language = "English"

    def __init__(self, path):
        with open(path, encoding="utf-8") as source:
            rows = [line.rstrip("\n") for line in source if " = " in line]
        self.texts = dict(row.split(" = ", 1) for row in rows)

    def __call__(self, text):
        if text.isascii():
            return text
        numbers = iter(re.findall("[0-9]+", text))
        return re.sub("#", lambda _: next(numbers), self.texts[re.sub("[0-9]+", "#", text)])


class Japanese:
    language = "Japanese"

    def __call__(self, text):
        return text


class Sample:
    def __init__(self, path, say):
        self.say = say
        self.lists, self.keywords, self.forms = {}, [], []
        self.default_form = 0
        with open(path, encoding="utf-8") as source:
            lines = [line.strip() for line in source]
        lines = [line for line in lines if line and not line.startswith("#")]
        for line in [l for l in lines if l.startswith("form ")]:
            self.add_form(line.removeprefix("form "))
        self.lists["forms"] = [f"{form.name}:{form.text}" for form in self.forms]
        for line in lines:
            if line.startswith("list "):
                name, texts = line.removeprefix("list ").split("=", 1)
                self.lists[name.strip()] = [text.strip() for text in texts.split("|")]
            elif not line.startswith("form "):
                self.add_keyword(line)
        for named in self.forms + [o for k in self.keywords for o in k.options]:
            named.text = say(named.text)
        for keyword in self.keywords:
            keyword.label = say(keyword.label)
            keyword.more = [say(text) for text in keyword.more]

    def add_form(self, line):
        name, text, size = (part.strip() for part in line.split(";"))
        if text.startswith("*"):
            self.default_form, text = len(self.forms), text[1:]
        width, height = (float(value) for value in size.split())
        self.forms.append(Form(name, text, width, height))

    def add_keyword(self, line):
        head, *columns = (part.strip() for part in line.split(";"))
        number, _, name = head.partition(" ")
        keyword = Keyword(int(number), name, columns[0])
        if name and keyword.id != len(self.keywords):
            raise SystemExit(f"keyword out of order: {line}")
        texts = self.expand(columns[1] if len(columns) > 1 else "")
        for index, text in enumerate(texts):
            if text.startswith("*"):
                keyword.default, text = index, text[1:]
            option, colon, shown = text.partition(":")
            keyword.options.append(
                Option(option, shown) if colon else Option(f"Option{index}", text))
            keyword.names.append(option)
        keyword.more = self.expand(columns[2] if len(columns) > 2 else "")
        self.keywords.append(keyword)

    def expand(self, column):
        """The texts of an option column, with lists and numbered runs written out."""
        texts = []
        for text in filter(None, (part.strip() for part in column.split("|"))):
            run = re.fullmatch(r"\{(\d+)\.\.(\d+)\} (.*%d.*)", text)
            if text.startswith("@"):
                texts += self.expand(" | ".join(self.lists[text[1:]]))
            elif run:
                first, last, form = int(run[1]), int(run[2]), run[3]
                texts += [form.replace("%d", str(n)) for n in range(first, last + 1)]
            else:
                texts.append(text)
        return texts


def ui_block(keyword, label, default, options, order, code):
    """One *OpenUI section; `code` gives the device code of an option name."""
    lines = [f"*OpenUI *{keyword}/{label}: PickOne",
             f"*OrderDependency: {order} AnySetup *{keyword}",
             f"*Default{keyword}: {default}"]
    lines += [f'*{keyword} {option.name}/{option.text}: "{code(option)}"' for option in options]
    return lines + [f"*CloseUI: *{keyword}"]


def page_sections(sample):
    points = lambda mm: round(mm * POINTS_PER_MM)
    sizes = {form.name: (points(form.width), points(form.height)) for form in sample.forms}
    default = sample.forms[sample.default_form].name
    options = [Option(form.name, form.text) for form in sample.forms]

    def code(option):
        width, height = sizes[option.name]
        return f"<</PageSize[{width} {height}]/ImagingBBox null>>setpagedevice"

    lines = []
    for keyword, label in (("PageSize", "原稿サイズ"), ("PageRegion", "用紙の領域")):
        lines += ui_block(keyword, sample.say(label), default, options, 30, code)
    lines.append(f"*DefaultImageableArea: {default}")
    margin = points(MARGIN_MM)
    for option in options:
        width, height = sizes[option.name]
        lines.append(f'*ImageableArea {option.name}/{option.text}: '
                     f'"{margin} {margin} {width - margin} {height - margin}"')
    lines.append(f"*DefaultPaperDimension: {default}")
    for option in options:
        width, height = sizes[option.name]
        lines.append(f'*PaperDimension {option.name}/{option.text}: "{width} {height}"')
    return lines


def write_description(sample, path):
    lines = HEADER.format(language=sample.say.language).splitlines() + page_sections(sample)
    source = sample.keywords[SOURCE_ID]
    lines += ui_block("InputSlot", source.label, source.options[source.default].name,
                      source.options, 40, lambda option: f"<</ZNTray({option.name})>>setpagedevice")
    # The printer's own keywords stand last, in id order.
    lines.append("*OpenGroup: ZNOptions/" + sample.say("プリンターオプション"))
    for keyword in sample.keywords[:FIRST_STANDARD_ID]:
        def code(option, name=keyword.name):
            return f"<</{name}({option.name})>>setpagedevice"
        lines += ui_block(keyword.name, keyword.label, keyword.options[keyword.default].name,
                          keyword.options, 50, code)
    lines.append("*CloseGroup: ZNOptions")
    with open(path, "w", encoding="utf-8", newline="\r\n") as out:
        out.write("\n".join(lines) + "\n")


def quoted(text):
    """A C string literal of the text in code page 932, bytes above ASCII as octal escapes."""
    data = text.encode("cp932")
    return '"' + "".join(chr(b) if 32 <= b < 127 and b not in b'"\\?' else f"\\{b:03o}"
                         for b in data) + '"'


def write_table(sample, path):
    with open(path, "w", encoding="ascii") as out:
        out.write("// Made by generate_sample.py; texts in code page 932, comments are ids.\n")
        for keyword in sample.keywords:
            texts = [option.text for option in keyword.options] + keyword.more
            options = ", ".join(quoted(text) for text in texts)
            out.write(f"ZN_TEXTS({keyword.id}, {quoted(keyword.label)}"
                      f"{', ' + options if options else ''})\n")


def write_names(sample, path):
    literal = lambda text: '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'
    with open(path, "w", encoding="utf-8") as out:
        out.write("// Made by generate_sample.py; by keyword id the label and the option names.\n")
        for keyword in (keyword for keyword in sample.keywords if keyword.name):
            names = "\\n".join(literal(name)[1:-1] for name in keyword.names + keyword.more)
            out.write(f'{{{literal(keyword.label)}, "{names}"}},\n')


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("options")
    parser.add_argument("--english")
    outputs = {"ppd": write_description, "table": write_table, "names": write_names}
    for name in outputs:
        parser.add_argument(f"--{name}")
    words = parser.parse_args()
    sample = Sample(words.options, English(words.english) if words.english else Japanese())
    for name, write in outputs.items():
        if path := getattr(words, name):
            write(sample, path)


if __name__ == "__main__":
    main()
