"""Reads interchange documents as text, so that one datum can be replaced and all else stays as it is."""
import os
import re
from dataclasses import dataclass, field, replace
from typing import Dict, List, Optional, Set, Tuple

_COMPONENT = re.compile(r'<comp>.*?</comp>', re.S)
_ID = re.compile(r'<id\b([^>]*)>([^<]*)</id>', re.S)
_DATUM = re.compile(r'<property\b([^>]*?)/>|<correlation\b([^>]*?)(?:/>|>([^<]*)</correlation>)', re.S)
_ATTRIBUTE = re.compile(r'([\w:]+)\s*=\s*(?:"([^"]*)"|\'([^\']*)\')')
_COMMENT = re.compile(r'<!--.*?-->', re.S)
_IMPORT = re.compile(r'<import\b[^>]*?\bfile\s*=\s*(?:"([^"]*)"|\'([^\']*)\')')


def _attributes(text: str) -> Dict[str, str]:
    return {m[1]: m[2] if m[2] is not None else m[3] for m in _ATTRIBUTE.finditer(text)}


def number(text: Optional[str]) -> Optional[float]:
    """The number that a text is; None if it is none or there is no text."""
    try:
        return float(text)
    except (TypeError, ValueError):
        return None


@dataclass
class Component:
    source: str
    number: str
    ids: Tuple[str, ...]
    cas: str
    formula: str
    data: Dict[str, 'Datum'] = field(default_factory=dict)

    @property
    def substance(self) -> str:
        """The same for the components of all sources that are one substance."""
        return self.cas or 'number ' + self.number


@dataclass(frozen=True)
class Datum:
    """A constant or a curve of a component, and where its element is in a document."""
    component: Component = field(repr=False, compare=False)
    name: str
    is_curve: bool
    attributes: Dict[str, str]
    coefficients: Tuple[str, ...]
    file: str = ''
    start: int = 0
    end: int = 0

    @property
    def value(self) -> float:
        return float(self.attributes['value'])

    def with_value(self, text: str) -> 'Datum':
        return self.with_attributes(value=text)

    def with_attributes(self, **changed: str) -> 'Datum':
        return replace(self, attributes={**self.attributes, **changed})

    def with_coefficients(self, coefficients) -> 'Datum':
        return replace(self, coefficients=tuple(coefficients))

    def with_content_of(self, other: 'Datum') -> 'Datum':
        """The same element with all that another one has, except its name."""
        return replace(self, attributes={**other.attributes, 'name': self.name},
                       coefficients=other.coefficients)

    def same_content(self, other: 'Datum') -> bool:
        def content(datum):
            return ([number(v) if number(v) is not None else v
                     for _, v in sorted(datum.attributes.items())],
                    sorted(datum.attributes), [number(c) for c in datum.coefficients])
        return content(self) == content(other)

    def element(self) -> str:
        words = ' '.join('%s="%s"' % item for item in self.attributes.items())
        if not self.is_curve:
            return '<property %s />' % words
        return '<correlation %s>\n      %s\n    </correlation>' % (words, ' '.join(self.coefficients))

    def brief(self) -> str:
        """What it holds, in a few words."""
        if not self.is_curve:
            return self.attributes['value']
        shown = [self.attributes.get(key, '-') for key in
                 ('equation', 'tempUnit', 'propUnit', 'logBasis', 'moleWtBasis', 'tMin', 'tMax')]
        return ' '.join(shown) + ': ' + ' '.join(self.coefficients)


class Source:
    """The documents of a library: one, and all that it imports."""

    def __init__(self, path: str):
        self.name = os.path.splitext(os.path.basename(path))[0]
        self.main = os.path.basename(path)
        self.folder = os.path.dirname(os.path.abspath(path))
        self.texts: Dict[str, str] = {}
        self.components: List[Component] = []
        self._read(self.main)
        self.data = [d for c in self.components for d in c.data.values()]
        self.of_name: Dict[str, List[Datum]] = {}
        for datum in self.data:
            self.of_name.setdefault(datum.name, []).append(datum)
        self.equations: Dict[int, Set[str]] = {}  # by the number of coefficients
        for datum in self.data:
            if datum.is_curve:
                self.equations.setdefault(len(datum.coefficients), set()).add(
                    datum.attributes.get('equation', ''))

    def _read(self, file: str) -> None:
        if file in self.texts:
            return
        with open(os.path.join(self.folder, file), encoding='utf-8') as stream:
            text = self.texts[file] = stream.read()
        for found in _COMPONENT.finditer(_COMMENT.sub(lambda m: ' ' * len(m[0]), text)):
            component = self._component(found[0], file, found.start())
            if component:
                self.components.append(component)
        for found in _IMPORT.finditer(_COMMENT.sub('', text)):
            self._read(found[1] or found[2])

    def _component(self, text: str, file: str, offset: int) -> Optional[Component]:
        identity = _ID.search(text)
        if not identity:
            return None
        words = _attributes(identity[1])
        component = Component(self.name, words.get('number', ''), tuple(identity[2].split()),
                              words.get('casNum', ''), words.get('formula', ''))
        for found in _DATUM.finditer(text):
            attributes = _attributes(found[1] if found[1] is not None else found[2])
            is_curve = found[1] is None
            if 'name' in attributes and (is_curve or number(attributes.get('value')) is not None):
                datum = Datum(component, attributes['name'], is_curve, attributes,
                              tuple((found[3] or '').split()), file,
                              offset + found.start(), offset + found.end())
                component.data[datum.name] = datum
        return component

    def neighbours(self, datum: Datum) -> List[Datum]:
        """The same datum of the components before and after in the table of this datum."""
        table = self.of_name[datum.name]
        place = next(i for i, d in enumerate(table) if d.component is datum.component)
        return [table[i] for i in (place - 1, place + 1) if 0 <= i < len(table)]

    def write(self, folder: str, changed: Optional[Datum] = None, file: Optional[str] = None) -> None:
        """Writes all documents, or one of them, with the element of a changed datum."""
        for name in [file] if file else self.texts:
            text = self.texts[name]
            if changed and changed.file == name:
                text = text[:changed.start] + changed.element() + text[changed.end:]
            target = os.path.join(folder, name)
            os.makedirs(os.path.dirname(target), exist_ok=True)
            with open(target, 'w', encoding='utf-8') as stream:
                stream.write(text)
