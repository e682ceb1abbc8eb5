"""What a dialog template must keep to: the platform's guidelines for sizes and distances, room for
its texts, access keys, labels. All lengths in dialog units."""
from modules import BUTTON, COMBOBOX, EDIT, LISTBOX, STATIC, LIST_VIEW

PAGE = (252, 218)
MARGIN = 7
GAP = 4  # least distance of two buttons
# The key of the sheet's own Apply button.
SHEET_KEYS = {"enu": "A", "deu": "B"}
# A text that the page may put in place of the template's: template, control -> strings.
OTHER_TEXTS = {("*:PAGE_SETUP", 1003): (488, 489)}
# Pairs of control ids that lie in the same place, of which one is shown.
ALTERNATIVES = {(1503, 1504)}
OWN_KEYS = (1, 2, 9)  # OK, Cancel, Help: by Enter, Esc and F1

PUSH, DEFAULT, AUTO_CHECK, GROUP_BOX, AUTO_RADIO = 0, 1, 3, 7, 9
NO_PREFIX, GROUP, TAB_STOP, MULTI_LINE = 0x80, 0x20000, 0x10000, 4
STATIC_TEXTS = (0, 1, 2)

# Widths where letters are 4 on the average, as in the dialog font and its usual stand-ins.
WIDTHS = {
    2: " \u00a0',./:;IJ\\ijl|", 2.5: "!()-[]frt", 3: '"*_`°', 3.5: "?FLcksz„“",
    4: "$0123456789EKPSTYabdeghnopquvxy{}äöüß", 4.5: "ABCRUVXZÄÜ", 5: "&DGHNOQÖ", 5.5: "#+<=>M^w~",
    6: "%", 6.5: "@Wm©®",
}
WIDTH = {letter: width for width, letters in WIDTHS.items() for letter in letters}


def text_width(text):
    return sum(WIDTH[letter] for letter in text)


def shown(control, text=None):
    """As the user sees it: without marks of access keys, with the longest that macros give."""
    text = control.text if text is None else text
    for macro, sign in (("{C}", "© 2024-2026"), ("{R}", "®")):
        text = text.replace(macro, sign)
    return text if control.window_class == STATIC and control.style & NO_PREFIX else plain(text)


def plain(text):
    return text.replace("&&", "\0").replace("&", "").replace("\0", "&")


def access_key(text):
    text = text.replace("&&", "")
    at = text.find("&")
    return text[at + 1].upper() if 0 <= at < len(text) - 1 else ""


def kind(control):
    return control.style & 15 if control and control.window_class == BUTTON else None


def is_text(control):
    return control.window_class == STATIC and control.style & 31 in STATIC_TEXTS


def takes_label(control):
    return control.window_class in (EDIT, COMBOBOX, LISTBOX, LIST_VIEW)


def height(control):
    return 14 if control.window_class == COMBOBOX else control.height  # the list drops down


def lines(text, width):
    """How many lines the text takes, broken at blanks."""
    count, used = 1, 0
    for word in text.split(" "):
        size = text_width(word)
        if size > width:
            return 99
        if used and used + 2 + size > width:
            count, used = count + 1, size
        else:
            used += size + (2 if used else 0)
    return count


class Checker:
    def __init__(self, name, template, language, strings, report):
        self.name, self.template, self.language = name, template, language
        self.strings = strings
        self.report = lambda text: report(f"{language}: {name}: {text}")

    def run(self):
        self.check_frame()
        self.check_places()
        self.check_sizes()
        self.check_texts()
        self.check_keys()
        self.check_labels()
        self.check_groups()

    def check_frame(self):
        if self.name != self.name.upper():
            self.report("the name is looked for in capitals")
        if self.template.font != (8, 400, 0, 1, "MS Shell Dlg"):
            self.report(f"font {self.template.font}")
        if self.template.style & 0x48 != 0x48:
            self.report("not in the shell's dialog font")
        if not self.template.title:
            self.report("no title")
        if self.template.is_page and (self.template.width, self.template.height) != PAGE:
            self.report(f"a page is {PAGE[0]} by {PAGE[1]}")

    def check_places(self):
        controls = self.template.controls
        right, bottom = self.template.width - MARGIN, self.template.height - MARGIN
        for control in controls:
            if control.left < MARGIN or control.top < MARGIN:
                self.report(f"{control} is nearer than {MARGIN} to the left or upper edge")
            if control.right > right or control.top + height(control) > bottom:
                self.report(f"{control} is nearer than {MARGIN} to the right or lower edge")
        for what, edge, wanted in (
            ("left", min(c.left for c in controls), MARGIN), ("upper", min(c.top for c in controls), MARGIN),
            ("right", max(c.right for c in controls), right),
            ("lower", max(c.top + height(c) for c in controls), bottom),
        ):
            if edge != wanted and not (what == "lower" and self.template.is_page):
                self.report(f"the {what} margin isn't {MARGIN}")
        for i, first in enumerate(controls):
            for second in controls[i + 1:]:
                self.check_pair(first, second)

    def check_pair(self, a, b):
        gap = GAP if kind(a) in (PUSH, DEFAULT) and kind(b) in (PUSH, DEFAULT) else 0
        apart = (
            a.right + gap <= b.left or b.right + gap <= a.left
            or a.top + height(a) + gap <= b.top or b.top + height(b) + gap <= a.top
        )
        if apart or tuple(sorted((a.id, b.id))) in ALTERNATIVES:
            return
        for box, inner in ((a, b), (b, a)):
            if kind(box) == GROUP_BOX and (
                box.left + 6 <= inner.left and inner.right <= box.right - 6
                and box.top + 10 <= inner.top and inner.top + height(inner) <= box.bottom - 4
            ):
                return
        self.report(f"{a} and {b} overlap or are too near")

    def check_sizes(self):
        for control in self.template.controls:
            size = control.height
            wanted = None
            if kind(control) in (PUSH, DEFAULT):
                wanted = 14
                if control.width < 50:
                    self.report(f"{control} is narrower than a button")
            elif kind(control) in (AUTO_CHECK, AUTO_RADIO):
                wanted = 10
            elif control.window_class == EDIT and not control.style & MULTI_LINE:
                wanted = 14
            elif control.window_class == COMBOBOX:
                wanted = size if size >= 40 else 40
            if wanted and size != wanted:
                self.report(f"{control} is {size} high, not {wanted}")

    def check_texts(self):
        for control in self.template.controls:
            for text in self.texts_of(control):
                self.check_room(control, shown(control, text))

    def texts_of(self, control):
        yield control.text
        for number in OTHER_TEXTS.get((self.name, control.id), ()):
            yield self.strings[number]

    def check_room(self, control, text):
        if not text or not isinstance(text, str):
            return
        if is_text(control):
            if lines(text, control.width) > control.height // 8:
                self.report(f'"{text}" needs more room than {control.width} by {control.height}')
        elif control.window_class == BUTTON:
            # What a button's edge, and the box or circle in front of the text, take.
            room = control.width - (8 if kind(control) in (PUSH, DEFAULT) else 13)
            if text_width(text) > room:
                self.report(f'"{text}" is {text_width(text)} wide, and has {room}')

    def check_keys(self):
        seen = {}
        if self.template.is_page and self.language in SHEET_KEYS:
            seen[SHEET_KEYS[self.language]] = "the sheet's Apply button"
        for control in self.template.controls:
            keys = set()
            for text in self.texts_of(control):
                if not isinstance(text, str) or (is_text(control) and control.style & NO_PREFIX):
                    continue
                key = access_key(text)
                if key:
                    keys.add(key)
                elif control.window_class == BUTTON and kind(control) != GROUP_BOX and control.id not in OWN_KEYS:
                    self.report(f"{control} has no access key")
                if key and (control.id in OWN_KEYS[1:] or kind(control) == GROUP_BOX):
                    self.report(f"{control} needs no access key")
            for key in keys:
                if key in seen:
                    self.report(f"access key {key} of {control} belongs to {seen[key]} already")
                seen[key] = control

    def check_labels(self):
        """A list or edit box takes its access key from the text in front of it."""
        label = previous = None
        for control in self.template.controls:
            if takes_label(control):
                if not previous or (previous.id, control.id) not in ALTERNATIVES:
                    label = previous
                self.check_label(label, control)
            previous = control

    def check_label(self, label, control):
        if not (label and is_text(label) and access_key(label.text) and label.text.endswith(":")):
            self.report(f"{control} has no label with an access key in front")
        elif label.top > control.top + height(control) - 8 or label.left > control.left:
            self.report(f"{label} stands behind what it labels")
        if not control.style & TAB_STOP:
            self.report(f"{control} cannot be reached by the Tab key")

    def check_groups(self):
        """Radio buttons: the first begins a group and is a tab stop; what follows begins another."""
        previous = None
        for control in self.template.controls:
            radio = kind(control) == AUTO_RADIO
            if radio and kind(previous) != AUTO_RADIO and control.style & (GROUP | TAB_STOP) != GROUP | TAB_STOP:
                self.report(f"{control} doesn't begin a group")
            if kind(previous) == AUTO_RADIO and not radio and not control.style & GROUP:
                self.report(f"{control} doesn't end the group before it")
            previous = control


def check_template(name, template, language, strings, report):
    Checker(name, template, language, strings, report).run()
