"""Ethanol from three libraries, with the C interface loaded at run time: what ethanol.c does. Hosts in
Python use the package zelaccess (docs/python.md); this shows how any language loads the library.

    python3 ethanol.py libZelC.so
"""
import ctypes
import sys

OK, MISSING_COMPONENT = 0, 13
TEXT_NAME, TEXT_CAS, TEXT_SOURCE = 0, 5, 8

zel = ctypes.CDLL(sys.argv[1])
Handle, Text, Size = ctypes.c_void_p, ctypes.c_char_p, ctypes.c_size_t
Doubles, Integers = ctypes.POINTER(ctypes.c_double), ctypes.POINTER(ctypes.c_int32)


class Constant(ctypes.Structure):
    _fields_ = [("value", ctypes.c_double), ("state", ctypes.c_int32),
                ("reference_code", ctypes.c_uint32)]


class Evaluation(ctypes.Structure):
    _fields_ = [("size", Size), ("unit", Text), ("temperature_unit", Text),
                ("order", ctypes.c_int32)]


# The types of the arguments: without them a number would be passed as an int.
Out = ctypes.POINTER(Handle)
Buffer = [Text, Size, ctypes.POINTER(Size)]
for name, arguments in {
    "zel_version": Buffer,
    "zel_reason": Buffer,
    "zel_search_open": [ctypes.POINTER(Text), Size, Handle, Out],
    "zel_search_close": [Out],
    "zel_search_component": [Handle, Text, Out],
    "zel_search_pair": [Handle, Text, Text, Text, Out],
    "zel_component_free": [Out],
    "zel_component_text": [Handle, ctypes.c_int32, *Buffer],
    "zel_component_constant": [Handle, Text, Text, ctypes.POINTER(Constant)],
    "zel_component_constant_text": [Handle, Text, ctypes.c_int32, *Buffer],
    "zel_evaluator_new": [Handle, Text, ctypes.POINTER(Evaluation), Out],
    "zel_evaluator_batch": [Handle, Size, Doubles, Doubles, Doubles, Integers, ctypes.c_int32],
    "zel_evaluator_free": [Out],
    "zel_item_value": [Handle, Text, Doubles],
    "zel_item_free": [Out],
    "zel_library_open": [Text, Handle, Out],
    "zel_library_close": [Out],
    "zel_columns_open": [Handle, Text, Text, Out],
    "zel_columns_add_keys": [Handle, Integers, Size],
    "zel_columns_add_reals": [Handle, Text, Doubles, Size],
    "zel_columns_read": [Handle, Size, ctypes.POINTER(Size)],
    "zel_columns_close": [Out],
    "zel_change_begin": [Text, Handle, Out],
    "zel_change_edit": [Handle, ctypes.POINTER(Text), Size, Out],
    "zel_change_drop": [Out],
    "zel_table_column": [Handle, Text, ctypes.POINTER(Size)],
    "zel_table_number": [Handle, Size, Size, Doubles],
    "zel_table_free": [Out],
}.items():
    getattr(zel, name).argtypes = arguments
    getattr(zel, name).restype = ctypes.c_int32


def text(function, *arguments):
    """The text that a function copies to a buffer of the right size."""
    length = Size()
    need(function(*arguments, None, 0, length))
    buffer = ctypes.create_string_buffer(length.value + 1)
    need(function(*arguments, buffer, len(buffer), None))
    return buffer.value.decode("utf-8")


def need(status):
    if status != OK:
        raise RuntimeError(f"{status}: {text(zel.zel_reason)}")


def made(function, *arguments):
    """The handle that a function makes."""
    handle = Handle()
    need(function(*arguments, handle))
    return handle


def words(*texts):
    return (Text * len(texts))(*(one.encode() for one in texts))


print("version", text(zel.zel_version))
search = made(zel.zel_search_open, words("crc.lb1", "perry.lb1", "sample.lb1"), 3, None)
ethanol = made(zel.zel_search_component, search, b"ETHANOL")
print(text(zel.zel_component_text, ethanol, TEXT_NAME), text(zel.zel_component_text, ethanol, TEXT_CAS))
nbp = Constant()
need(zel.zel_component_constant(ethanol, b"NBP", b"degC", nbp))
source = text(zel.zel_component_constant_text, ethanol, b"NBP", TEXT_SOURCE)
print(f"boils at {nbp.value:.2f} C, from {source}")

how = Evaluation(ctypes.sizeof(Evaluation), b"bar", b"degC", 1)
pressure = made(zel.zel_evaluator_new, ethanol, b"VaporPressure", how)
temperatures, p, dp = (ctypes.c_double * 2)(25.0, 78.3), (ctypes.c_double * 2)(), (ctypes.c_double * 2)()
need(zel.zel_evaluator_batch(pressure, 2, temperatures, p, dp, None, 0))
print(f"{p[0]:.4f} and {p[1]:.4f} bar, {dp[0]:.5f} and {dp[1]:.5f} bar/K")
need(zel.zel_evaluator_free(pressure))
need(zel.zel_component_free(ethanol))

pair = made(zel.zel_search_pair, search, b"NRTL", b"WATER", b"ETHANOL")
bij = ctypes.c_double()
need(zel.zel_item_value(pair, b"bij", bij))
print(f"bij {bij.value:.3f} K")
need(zel.zel_item_free(pair))

library = made(zel.zel_library_open, b"sample.lb1", None)
columns = made(zel.zel_columns_open, library, b"NRTL", b"SAMPLE")
keys, values, read = (ctypes.c_int32 * 32)(), (ctypes.c_double * 16)(), Size()
need(zel.zel_columns_add_keys(columns, keys, len(keys)))
need(zel.zel_columns_add_reals(columns, b"alphaij", values, len(values)))
pairs, total = 0, 0.0
while True:
    need(zel.zel_columns_read(columns, 16, read))
    if read.value == 0:
        break
    pairs += read.value
    total += sum(values[:read.value])
print(f"{pairs} pairs, mean alphaij {total / pairs:.5f}")
need(zel.zel_columns_close(columns))
need(zel.zel_library_close(library))

if zel.zel_search_component(search, b"ETHANLO", Handle()) != MISSING_COMPONENT:
    sys.exit(1)
print(text(zel.zel_reason))
need(zel.zel_search_close(search))  # no reader may have a library that is changed

change = made(zel.zel_change_begin, b"crc.lb1", None)
rows = made(zel.zel_change_edit, change, words("ETHANOL", "NBP=78.31C"), 2)


def cell(heading):
    column, number = Size(), ctypes.c_double()
    need(zel.zel_table_column(rows, heading, column))
    need(zel.zel_table_number(rows, 0, column.value, number))
    return number.value


print(f"NBP from {cell(b'old'):.2f} to {cell(b'new'):.2f} K")
need(zel.zel_table_free(rows))
need(zel.zel_change_drop(change))
