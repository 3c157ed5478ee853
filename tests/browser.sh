#!/usr/bin/env bash
# Opens a report in headless Chromium, at the width of a telephone, a tablet and a screen, and looks
# for what a person would see: texts of a figure that lie upon each other or outside of it, a page
# that is wider than its window, requests and errors. Without Chromium it says so and ends well.
#
#   tests/browser.sh [TOOL]        the tool is build/ovri by default
set -euo pipefail
cd "$(dirname "$0")/.."
tool=$(realpath "${1:-build/ovri}")

chromium=$(command -v chromium || command -v chromium-browser || true)
if [ -z "$chromium" ]; then
    echo "SKIPPED: there is no Chromium here (on Debian: apt-get install chromium)"
    exit 0
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
examples=$PWD/examples

# A page with every figure: an undirected network with an attribute, and a directed one.
(
    cd "$work"
    "$tool" estimate --network "$examples/karate/karate.txt" --undirected --effects 'edge,AT(2)' \
        --seed 1 -q -o karate >/dev/null || true
    "$tool" gof karate --samples 200 -q >/dev/null || true
    "$tool" report karate -q
    "$tool" estimate --network "$examples/managers/friendship.txt" --directed \
        --effects 'arc,reciprocity,AT-T(2)' --seed 1 -q -o managers >/dev/null || true
    "$tool" gof managers --samples 200 -q >/dev/null || true
    "$tool" report managers -q
    "$tool" report karate managers -q -o both
)

# What the page tells of itself once it is laid out: a line a finding.
cat > "$work/look.js" <<'SCRIPT'
addEventListener("load", () => {
  const found = [];
  const size = document.documentElement;
  if (size.scrollWidth > size.clientWidth + 1)
    found.push("the page is " + size.scrollWidth + " wide in a window of " + size.clientWidth);
  const figures = [...document.querySelectorAll("svg.figure")];
  for (const figure of figures) {
    const name = figure.closest("figure").id;
    const frame = figure.getBoundingClientRect();
    if (frame.width < 200 || frame.height < 30) found.push(name + " is " + frame.width + " wide");
    const texts = [...figure.querySelectorAll("text")].map(each => {
      const box = each.getBoundingClientRect();
      const text = [...each.childNodes].filter(n => n.nodeType === 3).map(n => n.data).join("");
      return {text, left: box.left, right: box.right, top: box.top, bottom: box.bottom};
    }).filter(each => each.text);
    for (const one of texts) {
      if (one.left < frame.left - 1 || one.right > frame.right + 1 || one.top < frame.top - 1 ||
          one.bottom > frame.bottom + 1)
        found.push(name + ": `" + one.text + "` is cut");
    }
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
  for (const each of performance.getEntriesByType("resource")) found.push("asked for " + each.name);
  const result = document.createElement("pre");
  result.id = "findings";
  result.textContent = "FIGURES " + figures.length + "\n" +
      found.map(each => "FOUND " + each).join("\n") + "\nEND\n";
  document.body.append(result);
});
SCRIPT

run_chromium() {
    "$chromium" --headless --no-sandbox --disable-gpu --disable-quic --no-first-run \
        --disable-background-networking --disable-component-update --disable-sync \
        --user-data-dir="$work/profile" --hide-scrollbars --virtual-time-budget=5000 "$@" \
        2>"$work/chromium.err"
}

failures=0
for page in karate managers both; do
    for width in 360 800 1600; do
        # The look needs a script, which the page itself forbids.
        {
            sed '/Content-Security-Policy/d; /<\/head>/,$d' "$work/$page/report.html"
            echo "<style>html{width:${width}px}</style><script>"
            cat "$work/look.js"
            echo "</script>"
            sed -n '/<\/head>/,$p' "$work/$page/report.html"
        } > "$work/looked.html"
        run_chromium --window-size="$((width < 500 ? 500 : width)),1200" --dump-dom \
            "file://$work/looked.html" > "$work/dom.html"
        found=$(sed -n '/id="findings">FIGURES/,/^END/p' "$work/dom.html")
        figures=$(sed -n 's/.*FIGURES \([0-9]*\).*/\1/p' <<<"$found" | head -n 1)
        problems=$(grep -c '^FOUND' <<<"$found" || true)
        errors=$(grep -c 'CONSOLE.*\(error\|refused\)' "$work/chromium.err" || true)
        echo "$page at $width: ${figures:-no} figures, $problems findings, $errors console errors"
        grep '^FOUND' <<<"$found" | head -n 10 || true
        if [ "${figures:-0}" -lt 8 ] || [ "$problems" -gt 0 ] || [ "$errors" -gt 0 ]; then
            failures=$((failures + 1))
        fi
    done
done
if [ -n "${OVRI_SCREENSHOTS:-}" ]; then
    mkdir -p "$OVRI_SCREENSHOTS"
    for page in karate managers both; do
        for width in 500 800 1600; do
            run_chromium --window-size="$width,4200" \
                --screenshot="$OVRI_SCREENSHOTS/$page-$width.png" \
                "file://$work/$page/report.html"
        done
        run_chromium --window-size=800,4200 --blink-settings=preferredColorScheme=0 \
            --screenshot="$OVRI_SCREENSHOTS/$page-dark.png" "file://$work/$page/report.html"
    done
fi
[ "$failures" -eq 0 ]
