"""Banks of all types, walks by columns, edits, documents, checks and comparisons."""

import os

import numpy as np
import pandas as pd
import pytest

import zelaccess as za

# For each bank type an item: its key and a field of numbers; see also test_every_type.
FIELDS = za.bank_types().index


def test_bank_types_and_fields():
    assert len(za.bank_types()) == 50
    for bank_type in FIELDS:
        assert (len(za.fields(bank_type)) > 0) == (bank_type not in ("PURECOMP",)), bank_type
    assert za.fields("nrtl").loc["bij", "count"] == 1
    with pytest.raises(za.WrongUsage, match="NRLT"):
        za.fields("NRLT")


def values_for(bank_type):
    """A table with one item, in which each field of one number has a value of its own."""
    row = za.bank_types().loc[bank_type]
    words = ["ETHANOL", "WATER"] if row["key"] == "components" else ["3", "4"]
    if row["key"] == "text":
        words = ["ABC"]
    words = words[:max(1, row["parts"])]
    heads = ["item"] if len(words) == 1 else [f"item {i + 1}" for i in range(len(words))]
    values = {}
    for i, (name, field) in enumerate(za.fields(bank_type).iterrows()):
        if field["kind"] == "number" and field["count"] == 1 and not name.lower().startswith("t"):
            values[name] = 1.5 + i
    return words, pd.DataFrame([[*words, *values.values()]], columns=[*heads, *values]), values


@pytest.mark.parametrize("bank_type", [one for one in FIELDS if one != "PURECOMP"])
def test_every_type_is_written_and_read_by_field_name(folder, bank_type):
    words, table, values = values_for(bank_type)
    with za.edit("all.lb1", new=True, names="perry.lb1") as edit:
        done = edit.import_table(table, f"{bank_type}:MINE")
        assert (done["new"], done["refused"]) == (1, 0)
    bank = za.open("all.lb1", names="perry.lb1")[f"{bank_type}:MINE"]
    assert len(bank) == 1 and len(bank.keys()) == 1
    item = bank[bank.keys()[0]]
    assert set(item) == set(za.fields(bank_type).index)
    columns = bank.columns()
    for name, value in values.items():
        assert item[name] == pytest.approx(value, rel=1e-6), name
        assert columns[name][0] == item[name], name
    for name in item:
        if isinstance(item[name], float) and np.isnan(item[name]) and name in columns:
            assert np.isnan(columns[name][0]), name


def test_columns_are_those_of_the_items(folder):
    bank = za.open("sample.lb1", names="perry.lb1")["NRTL"]
    frame = bank.to_dataframe()
    assert len(frame) == len(bank) == 218
    for i, key in list(enumerate(bank.keys()))[::40]:
        item = bank[key]
        assert item.bij == frame["bij"][i] and item.alphaij == frame["alphaij"][i]
    assert frame["dij"].isna().sum() == sum(np.isnan(one.dij) for one in bank.values())
    pure = za.open("perry.lb1")["PURECOMP"].to_dataframe(["name", "TC", "NBP", "number"])
    row = pure[pure["name"] == "Ethanol"].iloc[0]
    assert row["TC"] == 514.0 and np.isnan(row["NBP"]) and row["number"] == 10000007
    with pytest.raises(za.WrongUsage, match="it has"):
        bank.columns(["bijj"])


def test_groups_mappings_and_components_by_field_name(folder):
    libs = za.Libraries("sample.lb1", "perry.lb1")
    library = za.open("sample.lb1", names="perry.lb1")
    assert {"NRTL", "WILSON"} <= set(library.banks["type"])
    for bank in library:
        if len(bank):
            item = bank[bank.keys()[0]]
            assert len(item) == len(za.fields(bank.type)) and item.source.endswith(bank.id)
    ethanol = za.open("perry.lb1")["PURECOMP"]["ETHANOL"]
    assert ethanol["TC"] == 514.0 and ethanol["formula"] == "C2H6O"
    assert libs.item("PURECOMP", "ETHANOL")["TC"] == 514.0
    with pytest.raises(za.MissingItem, match="has no item"):
        library["NRTL"]["ETHANOL", "ETHANOL"]


def test_names_stay_when_another_handle_closes(folder):
    library = za.open("sample.lb1", names="perry.lb1")
    other = za.Libraries("sample.lb1", names="crc.lb1")
    assert other.pair("NRTL", "ETHANOL", "WATER").bji == 624.867
    other.close()
    assert library["NRTL"]["ETHANOL", "WATER"].bji == 624.867
    library.close()
    with pytest.raises(za.MissingItem, match="name one that knows"):
        za.open("sample.lb1")["NRTL"]["ETHANOL", "WATER"]


def test_pairs_and_coverage(folder):
    libs = za.Libraries("sample.lb1", "perry.lb1")
    pairs = libs.pairs("NRTL", ["ETHANOL", "WATER"])
    assert len(pairs) == 1 and pairs["bji"][0] == 624.867
    assert len(libs.pairs("NRTL")) == 218
    coverage = libs.coverage(["ETHANOL", "WATER"], models=["NRTL", "WILSON"])
    assert list(coverage["model"]) == ["NRTL", "WILSON"]
    assert libs.coverage(["ETHANOL", "AIR"])["from"][0] is None


def test_an_edit_is_all_or_nothing(folder):
    with pytest.raises(za.ZelError, match="did you mean"):
        with za.edit("crc.lb1") as own:
            own["ETHANOL"].NBP = 300.0
            own["ETHANOL"].NPB = 300.0
    assert za.Libraries("crc.lb1")["ETHANOL"].NBP == 351.39
    assert za.history("crc.lb1").empty
    with pytest.raises(ZeroDivisionError):
        with za.edit("crc.lb1") as own:
            own["ETHANOL"].NBP = 300.0
            1 / 0
    assert za.Libraries("crc.lb1")["ETHANOL"].NBP == 351.39
    with za.edit("crc.lb1", dry_run=True) as own:
        own["ETHANOL"].NBP = 300.0
    assert za.Libraries("crc.lb1")["ETHANOL"].NBP == 351.39


def test_an_edit_that_cannot_be_made_ends(folder):
    import shutil

    (folder / "sub").mkdir()
    edit = za.edit("sub/new.lb1", new=True)
    with pytest.raises(za.ZelError):
        with edit:
            shutil.rmtree("sub")
    with pytest.raises(za.ZelError, match="this edit has ended"):
        edit["ETHANOL"].NBP = 300.0
    with pytest.raises(za.ZelError, match="this edit has ended"):
        with za.edit("crc.lb1") as own:
            pass
        own["ETHANOL"].NBP = 300.0


def test_undefined_whole_numbers_are_nan(folder):
    table = pd.DataFrame({"item 1": [1, 1], "item 2": [2, 3], "kij": [0.1, 0.2],
                          "refCode": [7, None]})
    with za.edit("some.lb1", new=True) as some:
        some.import_table(table, "SRKO:SOME")
    bank = za.open("some.lb1")["SRKO"]
    codes = bank.columns(["refCode"])["refCode"]
    assert codes[0] == 7.0 and np.isnan(codes[1]) and codes.dtype == float
    assert np.isnan(bank["1", "3"].refCode) and bank["1", "2"].refCode == 7.0
    assert bank.columns()["key 1"].dtype == np.int32


def test_edits_of_every_kind_and_undo(folder):
    antoine = za.Correlation("VaporPressure", 21, [16.57, -3626.55, -34.29], 250.0, 400.0, ref=77)
    with za.edit("own.lb1", names="perry.lb1", note="a day's work") as own:
        own["ETHANOL"].NBP = za.Q(78.31, "degC", ref=999)
        own["ETHANOL"]["TC"] = 514.5
        own["ETHANOL"].VaporPressure = antoine
        own["NRTL", "WATER", "ETHANOL"].bij = 625.0
        own.set("WATER", ref=5, PC=za.Q(220.0, "bar"))
        del own["ETHANOL"].PC
        with pytest.raises(za.LibraryInUse):
            za.Libraries("own.lb1")
    assert [row["datum"] for row in own.changes][:2] == ["NBP", "TC"]
    libs = za.Libraries("own.lb1")
    ethanol = libs["ETHANOL"]
    assert (ethanol.NBP, ethanol.NBP.code) == (pytest.approx(351.46), 999)
    assert ethanol.TC == 514.5
    assert ethanol.VaporPressure(350.0) == pytest.approx(antoine(350.0), rel=1e-6)
    assert ethanol.VaporPressure.range == (250.0, 400.0) and ethanol.VaporPressure.code == 77
    assert ethanol.PC.source != "own.lb1:OWN"
    assert libs["WATER"].PC == pytest.approx(22000.0) and libs["WATER"].PC.code == 5
    assert libs.pair("NRTL", "ETHANOL", "WATER").bji == 625.0
    assert list(za.history("own.lb1")["command"]) == ["a day's work"]
    back = za.undo("own.lb1")
    assert "NBP" in set(back["field"])
    assert np.isnan(libs["ETHANOL"].NBP) or libs["ETHANOL"].NBP.state != "stored"
    assert libs.pair("NRTL", "ETHANOL", "WATER").bji == 624.867


def test_documents_tables_and_indexes(folder):
    library = za.open("sample.lb1")
    (folder / "out").mkdir()
    assert library.export("out") == len(library) + 1
    with za.edit("again.lb1", new=True) as again:
        done = again.import_document(next((folder / "out").glob("[a-z]*.xml")))
        assert done["items"] == library.banks["items"].sum()
    copy = za.open("again.lb1")
    assert list(copy.banks["items"]) == list(library.banks["items"])
    np.testing.assert_array_equal(copy["NRTL"].columns(["bij"])["bij"],
                                  library["NRTL"].columns(["bij"])["bij"])
    assert za.open("perry.lb1").dump("out") == 2
    assert (folder / "out" / "perry.bnk").read_text().count("\n") >= 1
    assert library.table_text("NRTL").count("\n") == 219
    (folder / "bad.xml").write_text("<bank>")
    with pytest.raises(za.ZelError, match="bad.xml"):
        with za.edit("again.lb1") as again:
            again.import_document("bad.xml")
    picked = za.open("perry.lb1").pick_list(path="picker.lst")
    assert len(picked) == len(za.open("perry.lb1")["PURECOMP"])
    assert (folder / "picker.lst").exists()
    assert picked.set_index("id").loc["ETHANOL", "MW"] == pytest.approx(46.07, abs=0.01)


def test_strength_of_findings(folder):
    with za.edit("crc.lb1") as crc:
        crc["ETHANOL"].MW = 64.07
    every = za.check("crc.lb1", min_strength=0)
    assert {"strength", "fingerprint", "evidence"} <= set(every.columns)
    assert every["strength"].between(0, 1).all() and (every["strength"] < 0.49).any()
    found = za.check("crc.lb1")
    assert found["strength"].min() >= 0.5 and len(found) < len(every)
    weight = found[(found["item"] == "ETHANOL") & (found["datum"] == "MW")].iloc[0]
    assert weight["id"] == "formula-weight" and "from the formula" in weight["evidence"]
    assert len(weight["fingerprint"]) == 16
    libs = za.Libraries("crc.lb1")
    assert len(libs.check(min_strength=0)) == len(every)
    assert len(libs.check()) == len(found)
    assert (libs.check(min_strength=1)["strength"] == 1).all()


def test_sources_are_found_on_a_path(folder, monkeypatch):
    folder = str(folder)
    other = os.path.join(folder, "other")
    os.mkdir(other)
    monkeypatch.chdir(other)
    with pytest.raises(za.LibraryNotFound):
        za.compare("crc.lb1", "perry.lb1", ["ETHANOL"])
    assert za.compare("crc", "perry", ["ETHANOL"], path=[folder]).components == 1
    assert za.check("perry", structure_only=True, path=[folder]).empty
    monkeypatch.setenv("ZEL_PATH", folder)
    assert za.compare("crc.lb1", "perry.lb1", ["ETHANOL"]).components == 1
    assert za.check("perry.lb1", structure_only=True).empty


def test_checks_comparisons_merge_and_flatten(folder):
    with za.edit("crc.lb1") as crc:
        crc["ETHANOL"].TC = 300.0
    found = za.check("crc.lb1", "perry.lb1")
    assert {"error", "warning"} >= set(found["severity"])
    assert "ETHANOL" in set(found["item"])
    # A datum that several rules accuse is found until all of them are silent.
    silent, kept = set(), za.check("crc.lb1")
    while not kept.empty and not silent >= set(kept["id"]):
        silent |= set(kept["id"])
        kept = za.check("crc.lb1", silence=sorted(silent))
    assert kept.empty and list(kept.columns) == list(found.columns)
    with pytest.raises(za.WrongUsage):
        za.check("crc.lb1", silence=["nothing"])
    comparison = za.compare("crc.lb1", "perry.lb1", ["ETHANOL"], tolerance=0.01)
    assert comparison.components == 1
    row = comparison.constants.set_index("constant").loc["TC"]
    assert (row["first"], row["second"]) == (300.0, 514.0)
    libs = za.Libraries("perry.lb1", "crc.lb1")
    assert libs.flatten("flat.lb1", ["ETHANOL", "WATER"])["items"].sum() >= 2
    assert len(za.Libraries("flat.lb1")) == 2
    with za.edit("flat.lb1") as flat:
        merged = flat.merge("sample.lb1")
        assert merged["added"].sum() == za.open("sample.lb1").banks["items"].sum()
    page = libs.sheet(["ETHANOL"])
    page.save("sheet.html")
    assert "Ethanol" in (folder / "sheet.html").read_text()
    assert "iframe" in page._repr_html_()


def test_a_table_is_refused_as_a_whole(folder):
    table = pd.DataFrame({"ids": ["ETHANOL", "WATER"], "TC": ["514", "hot"]})
    with pytest.raises(za.ZelError, match="hot"):
        with za.edit("crc.lb1") as crc:
            crc.import_table(table, "CRC")
    with za.edit("crc.lb1") as crc:
        done = crc.import_table(table, "CRC", skip_bad=True)
    assert (done["read"], done["refused"]) == (2, 1)
    assert list(done["rows"]["result"]) == ["refused"]  # the other one changes nothing
