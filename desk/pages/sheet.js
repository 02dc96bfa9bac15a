// The sheet of one or several components: identity, constants, correlations with their charts. What
// is compared stands in columns: components as merged, or what each source has.
"use strict";
const Sheet = (() => {
  const esc = Formula.escaped;
  let data = null;

  function use(all) { data = all; }

  function number(value) {
    return value === null || value === undefined ? "–" : String(Number(value.toPrecision(7)));
  }
  // A source may break after its library, the name of a method after a comma.
  function breakable(html) { return html.replace(/[:,](?! )/g, "$&<wbr>"); }
  // The citation of a code as [source, code, text, DOI]; those of a sheet are listed at its end.
  let cited = new Set();
  function codeText(source, code) {
    if (!code) return "";
    const reference = data.references.find((one) => one[0] === source && one[1] === code);
    if (!reference) return "code&nbsp;" + code;
    cited.add(reference);
    return '<abbr title="' + esc(reference[2]) + '">code&nbsp;' + code + "</abbr>";
  }
  function sourceText(source, code) {
    return breakable(esc(data.sources[source])) + (code ? ", " + codeText(source, code) : "");
  }
  function references() {
    if (cited.size === 0) return "";
    const rows = [...cited].sort((a, b) => a[0] - b[0] || a[1] - b[1]);
    return '<h3>References</h3><div class="wide"><table class="small references"><thead><tr>' +
      ["Source", "Code", "Citation"].map((head) => '<th scope="col">' + head + "</th>").join("") +
      "</tr></thead><tbody>" + rows.map(([source, code, text, doi]) => "<tr><td>" + esc(data.sources[source]) +
        "</td><td>" + code + "</td><td>" + esc(text) + (doi ? ', <a href="https://doi.org/' + esc(encodeURI(doi)) +
        '">doi:' + esc(doi) + "</a>" : "") + "</td></tr>").join("") + "</tbody></table></div>";
  }

  // A column: `merged` takes each datum from the first source that has it.
  function columnOf(component, source, isAlone) {
    const parts = source < 0 ? component.s : component.s.filter((part) => part[0] === source);
    return {
      component, source, parts,
      head: source < 0 ? esc(component.name)
        : (isAlone ? "" : esc(component.name) + ", ") + breakable(esc(data.sources[source])),
      label: source < 0 ? component.name
        : (isAlone ? "" : component.name + ", ") + data.sources[source],
    };
  }
  function constantIn(column, index) {
    for (const [source, constants] of column.parts) {
      const found = constants.find((one) => one[0] === index);
      if (!found) continue;
      const first = column.component.s.find((part) => part[1].some((one) => one[0] === index));
      return { value: found[1], isShort: column.source >= 0, won: column.source >= 0 && first[0] === source,
               note: column.source < 0 ? sourceText(source, found[2])
                 : codeText(source, found[2]) };
    }
    if (column.source >= 0) return null;
    const filled = column.component.f.find((one) => one[0] === index);
    return filled ? { value: filled[1], note: breakable(esc(filled[2])), filled: true } : null;
  }
  function curveIn(column, index) {
    for (const [source, , curves] of column.parts) {
      const found = curves.find((one) => one[0] === index);
      if (found) return { source, equation: found[1], low: found[2], high: found[3], unitT: found[4],
        unit: found[5], formT: found[6], code: found[7], coefficients: found[8], at: found[9] };
    }
    return null;
  }

  function identity(columns) {
    const rows = [
      ["Name", (c) => esc(c.name)], ["IDs", (c) => esc(c.ids.join(" "))],
      ["Number", (c) => c.n], ["CAS number", (c) => esc(c.cas)],
      ["Formula", (c) => esc(c.formula).replace(/([0-9]+)/g, "<sub>$1</sub>")],
      ["SMILES", (c) => esc(c.smiles)],
      ["Sources", (c) => c.s.map((part) => esc(data.sources[part[0]])).join("<br>")],
    ];
    const components = [...new Set(columns.map((column) => column.component))];
    return '<div class="wide"><table>' + rows.map(([head, text]) =>
      "<tr><th scope=\"row\">" + head + "</th>" +
      components.map((c) => "<td>" + (text(c) || "–") + "</td>").join("") + "</tr>").join("") +
      "</table></div>";
  }

  function constants(columns) {
    let rows = "";
    data.constants.forEach(([keyword, label, unit], index) => {
      const cells = columns.map((column) => constantIn(column, index));
      if (cells.every((cell) => cell === null)) return;
      rows += "<tr><th scope=\"row\"><b>" + esc(keyword) + "</b> <span class=\"soft\">" + esc(label) +
        "</span></th><td class=\"unit\">" + esc(unit) + "</td>" + cells.map((cell) => {
        if (!cell) return "<td>–</td>";
        const value = cell.filled ? "<i>" + number(cell.value) + "</i>" : number(cell.value);
        return '<td class="' + (cell.isShort ? "value" : "") + (cell.won ? " won" : "") + '">' + value +
          (cell.note ? ' <span class="soft small">' + cell.note + "</span>" : "") + "</td>";
      }).join("") + "</tr>";
    });
    return '<div class="wide"><table' + (columns.length > 4 ? ' class="many"' : "") + '><thead><tr><th scope="col">Constant</th><th scope="col">Unit</th>' +
      columns.map((column) => '<th scope="col">' + column.head + "</th>").join("") +
      "</tr></thead><tbody>" + rows + "</tbody></table></div>";
  }

  function range(curve) {
    const unit = " " + curve.unitT;
    if (curve.low === null && curve.high === null) return "no limits";
    if (curve.low === null) return "up to " + number(curve.high) + unit;
    if (curve.high === null) return "from " + number(curve.low) + unit;
    return number(curve.low) + " to " + number(curve.high) + unit;
  }

  // What a form yields where it stops, "0" or "r: C1".
  function endOf(text) {
    const end = text.replace(/^(below|r|tau below 0): /, "");
    return end === "none" ? "no value where it ends" : "where it ends: " + Formula.toHtml(end);
  }

  function formulas(curves) {
    const seen = [...new Set(curves.map((curve) => curve.equation))];
    return seen.map((equation) => {
      const text = data.equations[equation];
      if (!text) return "<p class=\"formula\">Equation " + equation + "</p>";
      return "<p class=\"formula\">Equation " + equation + (text[0] ? " (" + esc(text[0]) + ")" : "") +
        ": " + Formula.toHtml(text[1]) +
        (text[2] ? " <span class=\"soft small\">(" + endOf(text[2]) + ")</span>" : "") +
        "</p>";
    }).join("");
  }

  function correlation(columns, index) {
    const [name, label, unit] = data.correlations[index];
    const found = columns.map((column) => ({ column, curve: curveIn(column, index) }))
      .filter((one) => one.curve !== null);
    if (found.length === 0) return null;
    const section = document.createElement("section");
    section.className = "datum";
    section.innerHTML = "<h4>" + esc(name) + " <span class=\"soft\">" + esc(label) +
      (unit ? " [" + esc(unit) + "]" : "") + "</span></h4>" +
      formulas(found.map((one) => one.curve)) +
      '<div class="chart"></div><div class="wide"><table class="small"><thead><tr>' +
      ["", "Equation", "Range", "Coefficients C<sub>1</sub>, C<sub>2</sub>, …", "Unit of the form", "T&nbsp;in", "From"]
        .map((head) => '<th scope="col">' + head + "</th>").join("") + "</tr></thead><tbody>" +
      found.map(({ column, curve }) => "<tr><th scope=\"row\">" + column.head + "</th><td>" +
        curve.equation + "</td><td class=\"range\">" + range(curve) + "</td><td>" +
        curve.coefficients.map(number).join("&ensp; ") + "</td><td>" + esc(curve.unit || "–") +
        "</td><td>" + esc(curve.formT) + "</td><td>" +
        sourceText(curve.source, curve.code) + "</td></tr>").join("") + "</tbody></table></div>";
    const drawn = found.filter((one) => one.curve.at >= 0)
      .map(({ column, curve }) => ({ label: column.label, pieces: Curves.piecesAt(curve.at) }));
    return { section, draw: () => {
      const box = section.querySelector(".chart");
      if (drawn.length > 0) Charts.draw(box, label, name, unit, drawn);
      const hidden = found.filter((one) => one.curve.at < 0);
      if (hidden.length > 0) box.append(notDrawn(hidden));
    } };
  }
  // Which curves the chart does not have, and why.
  function notDrawn(hidden) {
    const note = document.createElement("p");
    note.className = "soft small";
    note.textContent = "Not drawn: " + hidden.map(({ column, curve }) => column.label +
      (curve.low === null || curve.high === null ? " (no limits)"
        : " (no value with the constants of " + (column.source < 0 ? "the component)" : "this source)"))).join("; ");
    return note;
  }

  // Puts the sheet into the element.
  function show(into, heading, columns) {
    cited = new Set();
    const root = document.createElement("article");
    root.innerHTML = "<h2>" + esc(heading) + "</h2>" + identity(columns) +
      "<h3>Constants</h3>" + constants(columns) +
      '<p class="soft small">' + (columns.some((column) => column.source >= 0)
        ? "The value in bold is used: that of the first source that has one. " : "") +
      (columns.some((column) => column.source < 0)
        ? "Values in italics are not stored; they are derived by the method named." : "") + "</p>" +
      "<h3>Correlations</h3>" + (columns.some((column) => column.source < 0 && column.parts.length > 1)
        ? '<p class="soft small">Curves are evaluated with the constants of the merged component.</p>' : "");
    into.append(root);
    data.correlations.forEach((unused, index) => {
      const made = correlation(columns, index);
      if (!made) return;
      root.append(made.section);
      made.draw();
    });
    const list = document.createElement("section");
    list.innerHTML = references();
    root.append(list);
    const symbols = document.createElement("section");
    symbols.innerHTML = "<h3>Symbols</h3><div class=\"wide\"><table class=\"small\">" + data.symbols.map(
      ([symbol, meaning]) => "<tr><th scope=\"row\" class=\"formula\">" + Formula.toHtml(symbol) +
        "</th><td>" + esc(meaning) + "</td></tr>").join("") + "</table></div>";
    root.append(symbols);
  }

  return { use, show, columnOf, constantIn, number };
})();
