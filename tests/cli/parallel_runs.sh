#!/bin/sh
# Batch runs from the outside: two calculations at once on one data directory
# give the figures of each run alone, and a project file cut short is
# reported in the warnings of show and calc.
# Arguments: the batch tool, the source tree, a scratch folder.
set -u
cli=$1
src=$2
home=$3
rm -rf "$home"
mkdir -p "$home"
run() {
    "$cli" --json --settings "$home/kparam.dat" --data-dir "$home/data" "$@"
}
run calc "$src/data/samples/Brine_R410A.prj" >"$home/a.alone" || exit 1
run calc "$src/data/samples/AirWater_R290.prj" >"$home/b.alone" || exit 1
cmp -s "$home/a.alone" "$home/b.alone" && { echo "the two samples give the same figures"; exit 1; }
i=0
while [ $i -lt 6 ]; do
    run calc "$src/data/samples/Brine_R410A.prj" >"$home/a.$i" &
    pa=$!
    run calc "$src/data/samples/AirWater_R290.prj" >"$home/b.$i" &
    pb=$!
    wait $pa || { echo "run $i of Brine_R410A failed"; exit 1; }
    wait $pb || { echo "run $i of AirWater_R290 failed"; exit 1; }
    cmp -s "$home/a.alone" "$home/a.$i" || { echo "run $i of Brine_R410A differs from the run alone"; exit 1; }
    cmp -s "$home/b.alone" "$home/b.$i" || { echo "run $i of AirWater_R290 differs from the run alone"; exit 1; }
    i=$((i + 1))
done
# Two first runs at once on a fresh directory, both installing the factory data.
rm -rf "$home/data"
run calc "$src/data/samples/Brine_R410A.prj" >"$home/a.fresh" &
pa=$!
run calc "$src/data/samples/AirWater_R290.prj" >"$home/b.fresh" &
pb=$!
wait $pa && wait $pb || { echo "a first run on a fresh directory failed"; exit 1; }
cmp -s "$home/a.alone" "$home/a.fresh" && cmp -s "$home/b.alone" "$home/b.fresh" ||
    { echo "first runs at once differ from the runs alone"; exit 1; }
# A run leaves no working set behind and changes no working file.
[ -z "$(ls "$home/data" | grep -i '\.tmp~')" ] || { echo "temporary files left in the data directory"; exit 1; }

head -c 9000 "$src/data/samples/Brine_R410A.prj" >"$home/cut.prj"
for command in show calc; do
    run $command "$home/cut.prj" >"$home/cut.$command" 2>"$home/cut.$command.err"
    grep -q "cut.prj ends" "$home/cut.$command" || { echo "$command: no warning for the cut file"; exit 1; }
done
grep -q '"warnings": \[\]' "$home/a.alone" || { echo "calc of a whole file has warnings"; exit 1; }
exit 0
