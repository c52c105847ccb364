// The full-text search and the dark colours. Both work on pages that are opened from files.
"use strict";

// ---- Colours: the system's choice, or the reader's, which the browser keeps ---------------------

const root = document.documentElement;
const systemDark = matchMedia("(prefers-color-scheme: dark)");

function remembered() {
    try {
        return localStorage.getItem("vexor-colours");
    } catch (error) {
        return null; // some browsers keep nothing for files
    }
}

function showColours(choice) {
    root.dataset.colours = choice || (systemDark.matches ? "dark" : "light");
}

showColours(remembered());
systemDark.addEventListener("change", () => showColours(remembered()));

function toggleColours() {
    const choice = root.dataset.colours === "dark" ? "light" : "dark";
    showColours(choice);
    try {
        localStorage.setItem("vexor-colours", choice);
    } catch (error) {
        // The choice then holds for this page only.
    }
}

// ---- Search ----------------------------------------------------------------------------------

const MOST_RESULTS = 25;
const PAGE = 0, ANCHOR = 1, TITLE = 2, PARENT = 3, KIND = 4, TEXT = 5;
let places = null;

// Lower case, without accents, with the words inside a name like SolveLinearLeastSquares as well.
function folded(text) {
    const names = text.match(/\w*[a-z\d][A-Z]\w*/g) || [];
    const parts = names.join(" ").replace(/([a-z\d])([A-Z])/g, "$1 $2");
    return (text + " " + parts).normalize("NFD").replace(/[\u0300-\u036f]/g, "").toLowerCase()
        .replace(/is(e|es|ed|ing|ation)\b/g, "iz$1");
}

function prepared(index) {
    return index.map(place => ({place, title: folded(place[TITLE]), parent: folded(place[PARENT]),
        text: folded(place[TEXT])}));
}

// Calls `then` with the places. The index is loaded at the first use of the search.
function withPlaces(then) {
    if (places) {
        then();
        return;
    }
    const script = document.createElement("script");
    script.src = "search-index.js";
    script.onload = () => {
        places = places || prepared(SEARCH_INDEX);
        then();
    };
    document.head.append(script);
}

// How well a word fits a text: `whole` for the whole word, `start` for the beginning of a longer one.
function fit(text, patterns, whole, start) {
    return patterns.whole.test(text) ? whole : patterns.start.test(text) ? start : 0;
}

function occurrences(text, pattern) {
    return Math.min((text.match(pattern) || []).length, 5);
}

// Every word must occur. A title counts more than the title of its page, and that more than text.
function score(entry, words, phrase) {
    let sum = 0;
    for (const word of words) {
        const inText = fit(entry.text, word, 3, 1.5);
        const best = Math.max(fit(entry.title, word, 24, 16), fit(entry.parent, word, 6, 4), inText);
        if (!best)
            return 0;
        sum += best + (inText && 0.4 * occurrences(entry.text, word.every));
    }
    if (words.length > 1)
        sum += phrase.test(entry.title) ? 20 : phrase.test(entry.text) ? 6 : 0;
    // Short titles are nearer to the query; an explanation comes before a single member.
    sum /= 1 + 0.03 * entry.place[TITLE].split(/\s+/).length;
    return sum + {page: 3, section: 2, member: 0}[entry.place[KIND]];
}

function search(query) {
    const terms = folded(query).split(/[^\p{L}\p{N}_]+/u).filter((term, i, all) => term && all.indexOf(term) === i);
    if (!terms.length)
        return [];
    const word = term => ({whole: new RegExp("(?<![a-z\\d_])" + term + "(?![a-z\\d_])"),
        start: new RegExp("(?<![a-z\\d_])" + term), every: new RegExp("(?<![a-z\\d_])" + term, "g")});
    const phrase = new RegExp(terms.join("[^a-z\\d]+"));
    const found = shortened => places
        .map(entry => ({entry, score: score(entry, shortened.map(word), phrase)}))
        .filter(result => result.score > 0)
        .sort((a, b) => b.score - a.score)
        .slice(0, MOST_RESULTS).map(result => result.entry.place);
    const exact = found(terms);
    // Without a result the endings go: "installed" then finds "installing".
    return exact.length ? exact : found(terms.map(term => term.replace(/(ation|ing|ed|es|s|e)$/, "") || term));
}

// The text around the first word that occurs, each occurrence marked.
function excerpt(text, query) {
    const terms = query.split(/[^\p{L}\p{N}_]+/u).filter(Boolean);
    const pattern = new RegExp("(?<![\\p{L}\\p{N}])(" + terms.join("|") + ")[\\p{L}\\p{N}]*", "giu");
    const phrase = text.search(new RegExp(terms.join("[^\\p{L}\\p{N}]+"), "iu"));
    const first = Math.max(phrase < 0 ? text.search(pattern) : phrase, 0);
    const begin = first < 60 ? 0 : text.indexOf(" ", first - 60) + 1;
    const part = document.createElement("span");
    const last = text.length > begin + 170 ? text.lastIndexOf(" ", begin + 170) : text.length;
    const shown = (begin ? "… " : "") + text.slice(begin, last) + (last < text.length ? " …" : "");
    let end = 0;
    for (const match of shown.matchAll(pattern)) {
        const mark = document.createElement("mark");
        mark.textContent = match[0];
        part.append(shown.slice(end, match.index), mark);
        end = match.index + match[0].length;
    }
    part.append(shown.slice(end));
    return part;
}

function shownResult(place, query) {
    const link = document.createElement("a");
    link.href = place[PAGE] + (place[ANCHOR] ? "#" + place[ANCHOR] : "");
    const title = document.createElement("b");
    title.textContent = place[TITLE];
    const parent = document.createElement("i");
    parent.textContent = place[PARENT];
    link.append(title, parent, excerpt(place[TEXT], query));
    return link;
}

function setUpSearch() {
    const field = document.getElementById("query");
    const results = document.getElementById("results");
    const show = () => withPlaces(() => {
        const query = field.value.trim();
        const found = query.length > 1 ? search(query) : [];
        results.replaceChildren(...found.map(place => shownResult(place, query)));
        if (query.length > 1 && !found.length)
            results.textContent = "Nothing found.";
        results.hidden = query.length < 2;
        results.dataset.query = query; // the results are those of this query
    });
    const step = forwards => {
        const links = [field, ...results.querySelectorAll("a")];
        const at = links.indexOf(document.activeElement);
        links[Math.min(Math.max(at + (forwards ? 1 : -1), 0), links.length - 1)].focus();
    };
    field.addEventListener("input", show);
    field.addEventListener("focus", () => field.value && show());
    document.getElementById("find").addEventListener("keydown", event => {
        if (event.key === "ArrowDown" || event.key === "ArrowUp") {
            event.preventDefault();
            step(event.key === "ArrowDown");
        } else if (event.key === "Enter" && event.target === field && results.firstElementChild) {
            location.href = results.firstElementChild.href;
        } else if (event.key === "Escape") {
            results.hidden = true;
        }
    });
    document.addEventListener("keydown", event => {
        if (event.key === "/" && !event.target.closest("input, textarea")) {
            event.preventDefault();
            field.focus();
        }
    });
    document.addEventListener("click", event => {
        if (!event.target.closest("#find"))
            results.hidden = true;
    });
    // A link such as index.html?q=euler opens with its results.
    const query = new URLSearchParams(location.search).get("q");
    if (query) {
        field.value = query;
        show();
    }
}

document.addEventListener("DOMContentLoaded", () => {
    setUpSearch();
    document.getElementById("colours").addEventListener("click", toggleColours);
});
