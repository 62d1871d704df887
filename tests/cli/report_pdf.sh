#!/bin/sh
# The report of a sample plant as one PDF: several pages, each with its
# number, and the figures and words of the plant in its text.
set -eu
cli="$1"; src="$2"; work="$3"
rm -rf "$work"; mkdir -p "$work"
"$cli" --settings "$work/kparam.dat" --data-dir "$work/data" report "$src/data/samples/Chiller_NH3.prj" --out "$work/r.pdf" > "$work/out.txt"
grep -q "pages: [5-9]" "$work/out.txt"
if ! command -v pdftotext > /dev/null; then echo "pdftotext missing: text not checked"; exit 0; fi
pdftotext "$work/r.pdf" "$work/r.txt"
for word in "Refrigerating capacity" "196.22" "Pressure Equipment Directive" "Page 1 / " "Suction line"; do
  grep -q "$word" "$work/r.txt" || { echo "missing in the report: $word"; exit 1; }
done
pages=$(pdfinfo "$work/r.pdf" | sed -n 's/^Pages: *//p')
test "$pages" -ge 5
echo "report: $pages pages"
