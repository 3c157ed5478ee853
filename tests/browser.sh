#!/usr/bin/env bash
# Opens reports in headless Chromium, at the width of a telephone, a tablet and a screen, light and
# dark, and looks for what a person would see: texts of a figure that lie upon each other or outside
# of it, a page that is wider than its window, letters that hardly differ from what they stand on,
# requests and errors. Without Chromium it says so and ends with status 77.
#
#   tests/browser.sh [TOOL]        the tool is build/ovri by default
#
# OVRI_SCREENSHOTS=DIR leaves pictures of the pages there.
set -euo pipefail
cd "$(dirname "$0")/.."
tool=$(realpath "${1:-build/ovri}")

skip() {
    echo "browser: Skipped"
    echo "$1"
    exit 77
}

chromium=$(command -v chromium || command -v chromium-browser || true)
[ -n "$chromium" ] || skip "there is no Chromium here (on Debian: apt-get install chromium)"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
examples=$PWD/examples

run_chromium() {
    HOME=$work timeout 100 "$chromium" --headless --no-sandbox --disable-gpu --disable-dev-shm-usage \
        --disable-quic --no-first-run --disable-background-networking --disable-component-update \
        --disable-sync --enable-logging=stderr --user-data-dir="$work/profile" --hide-scrollbars \
        --virtual-time-budget=10000 "$@" 2>"$work/chromium.err"
}

run_chromium --dump-dom 'data:text/html,<p id="begun">' > "$work/dom.html" || true
grep -q 'id="begun"' "$work/dom.html" || skip "Chromium does not start here: $(tail -n 1 "$work/chromium.err")"

# Pages with every figure: an undirected network with an attribute, a directed one, both, and what
# did not converge; names that would be marks if they were not taken for text.
(
    cd "$work"
    "$tool" estimate --network "$examples/karate/karate.txt" --undirected --effects 'edge,AT(2)' \
        --seed 1 -q -o karate >/dev/null || true
    "$tool" gof karate --samples 200 --seed 1 -q >/dev/null || true
    "$tool" report karate -q
    "$tool" estimate --network "$examples/managers/friendship.txt" --directed \
        --effects 'arc,reciprocity,AT-T(2)' --seed 1 -q -o managers >/dev/null || true
    "$tool" gof managers --samples 200 --seed 1 -q >/dev/null || true
    "$tool" report managers -q
    "$tool" report karate managers -q -o both
    long=$(printf 'n%.0s' {1..200})
    {
        echo 'from,to'
        echo '<script>alert(1)</script>,"a ""b"" & '"'c'"'"'
        printf '\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d,<script>alert(1)</script>\n'
        echo "$long,<img src=x onerror=alert(2)>"
        printf '%s,\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d\n' "$long"
    } > names.csv
    "$tool" estimate --network names.csv --undirected --effects edge --seed 1 -q -o names \
        --method stochastic-approximation --attempts 1 >/dev/null || true
    sed -i 's/"verdict": "converged"/"verdict": "not_converged"/; s/"exit_status": 0/"exit_status": 4/' \
        names/result.json
    "$tool" gof names --samples 100 --seed 1 -q >/dev/null 2>&1 || true
    "$tool" report names -q
)

# What a page tells of itself once it is laid out: a line a finding.
cat > "$work/look.js" <<'SCRIPT'
const found = [];
addEventListener("error", each => found.push("error: " + each.message), true);

function boxes(figure) {
  return [...figure.querySelectorAll("text")].map(each => {
    const box = each.getBoundingClientRect();
    const text = [...each.childNodes].filter(n => n.nodeType === 3).map(n => n.data).join("");
    return {text, left: box.left, right: box.right, top: box.top, bottom: box.bottom};
  }).filter(each => each.text);
}

function lookAtPlaces(name, frame, texts) {
  for (const one of texts)
    if (one.left < frame.left - 1 || one.right > frame.right + 1 || one.top < frame.top - 1 ||
        one.bottom > frame.bottom + 1)
      found.push(name + ": `" + one.text + "` is cut");
  for (let i = 0; i < texts.length; ++i)
    for (let j = i + 1; j < texts.length; ++j) {
      const a = texts[i], b = texts[j];
      const across = Math.min(a.right, b.right) - Math.max(a.left, b.left);
      // Lines of text have some air around their letters.
      const down = Math.min(a.bottom, b.bottom) - Math.max(a.top, b.top);
      const height = Math.min(a.bottom - a.top, b.bottom - b.top);
      if (across > 1 && down > 0.35 * height)
        found.push(name + ": `" + a.text + "` lies upon `" + b.text + "`");
    }
}

function channels(colour) {
  return colour.match(/[\d.]+/g).map(Number);
}
function luminance(colour) {
  const [r, g, b] = channels(colour).slice(0, 3).map(each => {
    const c = each / 255;
    return c <= 0.03928 ? c / 12.92 : ((c + 0.055) / 1.055) ** 2.4;
  });
  return 0.2126 * r + 0.7152 * g + 0.0722 * b;
}
// What an element's letters stand on: the nearest box above it that has a colour.
function ground(element) {
  for (let at = element; at; at = at.parentElement) {
    const colour = getComputedStyle(at).backgroundColor;
    const parts = channels(colour);
    if (parts.length < 4 || parts[3] > 0) return colour;
  }
  return "rgb(255, 255, 255)";
}
function lookAtContrast() {
  const told = new Set();
  for (const each of document.querySelectorAll("text, p, td, th, h1, h2, li, pre, figcaption")) {
    const style = getComputedStyle(each);
    const ink = each.tagName === "text" ? style.fill : style.color;
    const [a, b] = [luminance(ink), luminance(ground(each))];
    const ratio = (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05);
    const what = each.tagName + "." + (each.getAttribute("class") || "");
    if (ratio < 4.5 && !told.has(what)) {
      told.add(what);
      found.push(what + " has a contrast of " + ratio.toFixed(1));
    }
  }
}

addEventListener("load", () => {
  const size = document.documentElement;
  if (size.scrollWidth > size.clientWidth + 1)
    found.push("the page is " + size.scrollWidth + " wide in a window of " + size.clientWidth);
  const dark = matchMedia("(prefers-color-scheme: dark)").matches;
  if (dark !== luminance(ground(document.body)) < 0.2) found.push("the ground is not as asked for");
  const figures = [...document.querySelectorAll("svg.figure")];
  for (const figure of figures) {
    const name = figure.closest("figure").id;
    const frame = figure.getBoundingClientRect();
    if (frame.width < 200 || frame.height < 30) found.push(name + " is " + frame.width + " wide");
    if (!figure.querySelector("title") || !figure.querySelector("desc"))
      found.push(name + " has no words for those who do not see it");
    lookAtPlaces(name, frame, boxes(figure));
    for (const each of figure.querySelectorAll(".line"))
      if (getComputedStyle(each).fill !== "none") found.push(name + ": a line is filled");
  }
  lookAtContrast();
  if (document.querySelector("img, script:not([data-look]), link"))
    found.push("there is a mark that a name has made");
  for (const each of performance.getEntriesByType("resource")) found.push("asked for " + each.name);
  parent.postMessage({name: window.name, figures: figures.length, dark, found}, "*");
});
SCRIPT

# All pages at all widths in frames of one page, so that Chromium starts once for each scheme.
{
    echo '<!DOCTYPE html><meta charset="UTF-8"><style>:root{color-scheme:light dark}iframe{border:0}</style>'
    cat <<'SCRIPT'
<pre id="findings"></pre><script>
addEventListener("message", each => {
  const page = each.data;
  document.getElementById("findings").textContent += "PAGE " + page.name + " " +
      (page.dark ? "dark" : "light") + " " + page.figures + " " + page.found.length + "\n" +
      page.found.map(one => "FOUND " + one + "\n").join("");
});
</script>
SCRIPT
    for page in karate managers both names; do
        for width in 360 800 1600; do
            printf '<iframe name="%s-%s" width="%s" height="900" srcdoc="' "$page" "$width" "$width"
            # The look needs a script, which the page itself forbids.
            {
                sed '/Content-Security-Policy/d; /<\/head>/,$d' "$work/$page/report.html"
                echo '<script data-look="">'
                cat "$work/look.js"
                echo '</script>'
                sed -n '/<\/head>/,$p' "$work/$page/report.html"
            } | sed 's/&/\&amp;/g; s/"/\&quot;/g'
            echo '"></iframe>'
        done
        # And as it is: what its own rules forbid would stand on the console.
        echo "<iframe src=\"$page/report.html\"></iframe>"
    done
} > "$work/all.html"

failures=0
for scheme in light dark; do
    run_chromium --blink-settings=preferredColorScheme=$([ $scheme = dark ] && echo 0 || echo 1) \
        --window-size=1700,1200 --dump-dom "file://$work/all.html" > "$work/dom.html"
    sed -n '/id="findings">/,/<\/pre>/{s/.*id="findings">//;s/<\/pre>.*//;/^\(PAGE\|FOUND\)/p}' \
        "$work/dom.html" > "$work/findings"
    errors=$(grep -c 'CONSOLE' "$work/chromium.err" || true)
    pages=$(grep -c "^PAGE .* $scheme " "$work/findings" || true)
    few=$(awk '/^PAGE/ && $4 < ($2 ~ /^names/ ? 5 : 8)' "$work/findings")
    problems=$(grep -c '^FOUND' "$work/findings" || true)
    echo "$scheme: $pages pages, $(awk '/^PAGE/ { n += $4 } END { print n + 0 }' "$work/findings")" \
        "figures, $problems findings, $errors lines on the console"
    grep 'CONSOLE' "$work/chromium.err" | head -n 5 || true
    if [ "$pages" -ne 12 ] || [ -n "$few" ] || [ "$problems" -gt 0 ] || [ "$errors" -gt 0 ]; then
        head -n 40 "$work/findings"
        failures=$((failures + 1))
    fi
done

if [ -n "${OVRI_SCREENSHOTS:-}" ]; then
    mkdir -p "$OVRI_SCREENSHOTS"
    for page in karate managers both names; do
        for width in 500 800 1600; do
            run_chromium --window-size="$width,4200" \
                --screenshot="$OVRI_SCREENSHOTS/$page-$width.png" "file://$work/$page/report.html"
        done
        run_chromium --window-size=800,4200 --blink-settings=preferredColorScheme=0 \
            --screenshot="$OVRI_SCREENSHOTS/$page-dark.png" "file://$work/$page/report.html"
    done
fi
[ "$failures" -eq 0 ]
