// The page: its views, and the part of the address that names the view.
"use strict";
(() => {
  const data = JSON.parse(document.getElementById("data").textContent);
  const main = document.getElementById("main");
  const nav = document.getElementById("nav");
  const esc = Formula.escaped;
  const byNumber = new Map(data.components.map((one) => [one.n, one]));
  const indexOf = (keyword) => data.constants.findIndex((one) => one[0] === keyword);
  const kColumns = [
    { head: "ID", value: (c) => c.ids[0] || String(c.n) },
    { head: "Name", value: (c) => c.name },
    { head: "Formula", value: (c) => c.formula },
    { head: "CAS number", value: (c) => c.cas, far: true },
    ...["MW", "NBP", "TC", "PC"].map((keyword) => ({
      head: keyword, index: indexOf(keyword), number: true, far: keyword !== "NBP",
      value: (c) => constant(c, indexOf(keyword)),
    })),
    { head: "Sources", number: true, far: true, value: (c) => c.s.length },
  ];
  const state = { search: "", sort: 1, isDown: false };

  function constant(component, index) {
    const cell = index < 0 ? null : Sheet.constantIn(Sheet.columnOf(component, -1), index);
    return cell ? cell.value : null;
  }

  function compare(a, b) {
    if (a === null || a === undefined || a === "") return b === null || b === "" ? 0 : 1;
    if (b === null || b === undefined || b === "") return -1;
    const order = typeof a === "number" ? a - b : String(a).localeCompare(String(b), "en", { numeric: true });
    return state.isDown ? -order : order;
  }

  // All words must occur, in any case, in what names the component.
  function matches(component, words) {
    const text = [component.name, component.formula, component.cas, component.n, ...component.ids]
      .join(" ").toLowerCase();
    return words.every((word) => text.includes(word));
  }

  function fillList() {
    const words = state.search.toLowerCase().split(/\s+/).filter(Boolean);
    const column = kColumns[state.sort];
    const rows = data.components.filter((one) => matches(one, words))
      .map((one) => ({ one, key: column.value(one) })).sort((a, b) => compare(a.key, b.key));
    main.querySelector("tbody").innerHTML = rows.map(({ one }) => "<tr>" + kColumns.map((c, i) => {
      const value = c.value(one);
      const text = value === null || value === "" ? "–" : c.number ? Sheet.number(value) : esc(value);
      const kind = (c.number ? "number " : "") + (c.far ? "far" : "");
      return i === 0 ? '<th scope="row"><a href="#c/' + one.n + '">' + text + "</a></th>"
        : '<td class="' + kind + '">' + text + "</td>";
    }).join("") + "</tr>").join("");
    main.querySelector("#count").textContent = rows.length + " of " + data.components.length + " components";
    main.querySelectorAll("thead th").forEach((head, i) => {
      head.setAttribute("aria-sort", i !== state.sort ? "none" : state.isDown ? "descending" : "ascending");
    });
  }

  function showList() {
    main.innerHTML = '<h2>Components</h2><p class="noprint"><label for="search">Search</label> ' +
      '<input type="search" id="search" autocomplete="off" placeholder="name, ID, formula, CAS number"></p>' +
      '<p id="count" role="status" class="soft"></p><div class="wide"><table><thead><tr>' +
      kColumns.map((c) => '<th scope="col" class="' + (c.number ? "number " : "") + (c.far ? "far" : "") +
        '"><button type="button">' + c.head + (c.index >= 0 && data.constants[c.index][2]
          ? " [" + esc(data.constants[c.index][2]) + "]" : "") + "</button></th>").join("") +
      "</tr></thead><tbody></tbody></table></div>";
    const search = main.querySelector("#search");
    search.value = state.search;
    search.addEventListener("input", () => { state.search = search.value; fillList(); });
    main.querySelectorAll("thead button").forEach((button, i) => button.addEventListener("click", () => {
      state.isDown = state.sort === i && !state.isDown;
      state.sort = i;
      fillList();
    }));
    fillList();
  }

  function showComponent(component) {
    main.innerHTML = "";
    const columns = component.s.map((part) => Sheet.columnOf(component, part[0], true));
    if (component.f.length > 0) columns.push({ ...Sheet.columnOf(component, -1), parts: [], head: "derived" });
    Sheet.show(main, component.name || String(component.n), columns);
  }

  // A square for each stored pair, at the row and the column of its components.
  function showPairs() {
    main.innerHTML = "<h2>Pairs</h2>" + (data.pairs.length === 0 ? "<p>No bank of pairs.</p>"
      : '<p class="noprint"><label for="bank">Bank</label> <select id="bank">' + data.pairs.map((bank, i) =>
        '<option value="' + i + '">' + esc(bank.type + ", " + bank.source) + " (" + bank.pairs.length +
        ")</option>").join("") + '</select></p><p class="pick" id="pick" role="status">' +
        "Point at a square, or move to it with the tab key, to see its pair.</p><div id=\"meaning\"></div><div id=\"map\"></div>");
    if (data.pairs.length === 0) return;
    const select = main.querySelector("#bank");
    select.addEventListener("change", () => drawMap(data.pairs[select.value]));
    drawMap(data.pairs[0]);
  }
  function labelOf(number) {
    const component = byNumber.get(number);
    return component ? component.ids[0] || component.name : String(number);
  }
  // How the data of a bank use the parameters of its model.
  function meaningOf(bank) {
    if (bank.parameters.length === 0) return "";
    const known = (text) => text ? esc(text) : '<span class="soft">not known</span>';
    return '<details><summary>How ' + esc(bank.source) + " uses the parameters of " + esc(bank.type) +
      '</summary><div class="wide"><table class="small"><thead><tr>' + ["Field", "Unit", "Meaning"].map((head) =>
      '<th scope="col">' + head + "</th>").join("") + "</tr></thead><tbody>" + bank.parameters.map((row) =>
      '<tr><th scope="row">' + esc(row[0]) + "</th><td>" + known(row[1]) + "</td><td>" + known(row[2]) +
      "</td></tr>").join("") + "</tbody></table></div></details>";
  }
  function drawMap(bank) {
    main.querySelector("#meaning").innerHTML = meaningOf(bank);
    const numbers = [...new Set(bank.pairs.flat())].sort((a, b) => labelOf(a).localeCompare(labelOf(b)));
    const place = new Map(numbers.map((n, i) => [n, i]));
    const cell = 11;
    const margin = 64;
    const size = margin + cell * numbers.length + 4;
    let svg = '<svg class="map" viewBox="0 0 ' + size + " " + size + '" width="' + size + '" role="group" aria-label="' +
      esc(bank.type + ": " + bank.pairs.length + " pairs of " + numbers.length + " components") + '">';
    numbers.forEach((n, i) => {
      const at = margin + cell * i;
      svg += '<text x="' + (margin - 3) + '" y="' + (at + 8.5) + '" text-anchor="end">' + esc(labelOf(n)) + "</text>" +
        '<text transform="translate(' + (at + 8.5) + " " + (margin - 3) + ') rotate(-90)">' + esc(labelOf(n)) + "</text>" +
        '<path d="M' + margin + " " + at + "H" + size + "M" + at + " " + margin + "V" + size + '" stroke="#e8e8e8"/>';
    });
    bank.pairs.forEach(([one, other]) => {
      const i = Math.max(place.get(one), place.get(other));
      const k = Math.min(place.get(one), place.get(other));
      const text = esc(labelOf(one) + " + " + labelOf(other));
      svg += '<rect class="cell" tabindex="0" role="img" aria-label="' + text + '" x="' + (margin + cell * k + 0.5) +
        '" y="' + (margin + cell * i + 0.5) + '" width="' + (cell - 1) + '" height="' + (cell - 1) + '"><title>' +
        text + "</title></rect>";
    });
    const map = main.querySelector("#map");
    map.innerHTML = svg + "</svg><p class=\"soft\">" + bank.pairs.length + " of " +
      (numbers.length * (numbers.length - 1)) / 2 + " pairs of these " + numbers.length + " components</p>";
    const pick = main.querySelector("#pick");
    for (const kind of ["mouseover", "focusin"]) {
      map.addEventListener(kind, (event) => {
        const label = event.target.closest && event.target.closest("rect.cell");
        if (label) pick.textContent = bank.type + ": " + label.getAttribute("aria-label") + ", " + bank.source;
      });
    }
  }

  function showFindings() {
    const count = data.findings.length;
    main.innerHTML = "<h2>Findings of the check</h2><p class=\"soft\">" + count + (count === 1 ? " finding" : " findings") +
      '</p><div class="wide"><table><thead><tr>' + ["Severity", "Check", "Where", "What"].map((head) =>
      '<th scope="col">' + head + "</th>").join("") + "</tr></thead><tbody>" + data.findings.map((row) =>
      "<tr>" + row.map((text) => "<td>" + esc(text) + "</td>").join("") + "</tr>").join("") + "</tbody></table></div>";
  }

  function showSheet() {
    main.innerHTML = "";
    const isAlone = data.components.length === 1;
    const columns = data.columns.map(([component, source]) => Sheet.columnOf(data.components[component], source, isAlone));
    const names = [...new Set(columns.map((column) => column.component.name))];
    Sheet.show(main, names.join(", "), columns);
    main.querySelector("h2").hidden = document.title === names.join(", ");  // it is above already
  }

  const kViews = [["#", "Components", showList], ["#pairs", "Pairs", showPairs], ["#findings", "Findings", showFindings]];
  function route() {
    Charts.clear();
    if (data.columns) return showSheet();
    const hash = location.hash || "#";
    const component = /^#c\/(-?[0-9]+)$/.exec(hash);
    nav.innerHTML = kViews.map(([address, name]) => '<a href="' + address + '"' +
      (hash === address ? ' aria-current="page"' : "") + ">" + name + "</a>").join("");
    if (component && byNumber.has(Number(component[1]))) showComponent(byNumber.get(Number(component[1])));
    else (kViews.find((view) => view[0] === hash) || kViews[0])[2]();
    if (route.hasRun) { window.scrollTo(0, 0); main.focus({ preventScroll: true }); }
    route.hasRun = true;
  }

  Curves.load(data.curves);
  Sheet.use(data);
  Charts.use(data);
  if (data.columns) nav.remove();
  document.getElementById("footer").innerHTML = '<p class="soft small">' + esc(data.maker) + ". Sources, the preferred one first: " +
    data.sources.map(esc).join(", ") + ". Curves are interpolated between values of the library, within " +
    data.error.toExponential(0) + " of them.</p>";
  document.addEventListener("keydown", (event) => {
    const search = document.getElementById("search");
    if (event.key === "/" && search && document.activeElement !== search) { event.preventDefault(); search.focus(); }
  });
  window.addEventListener("hashchange", route);
  route();
  document.documentElement.dataset.ready = "1";
})();
