#!/bin/bash
# A system that has all that is needed and no apt-get: the packages are named and the work goes on.
. "$(dirname "$0")/../support/checks.sh"
tesela=$(cd "$(dirname "$0")/../.." && pwd)/tesela
unset DISPLAY WAYLAND_DISPLAY TESELA_DISPLAY

# All programs of this system but Debian's own.
mkdir "$work/programs"
IFS=: read -ra folders <<<"$PATH"
for folder in "${folders[@]}"; do
    [ -d "$folder" ] && find "$folder/" -maxdepth 1 ! -type d ! -name 'apt*' ! -name 'dpkg*' -exec ln -sf -t "$work/programs" {} +
done
PATH=$work/programs
holds "there is no apt-get" test -z "$(command -v apt-get dpkg-query)"

run "$tesela" shot label "$work/label.png"
exits "the work goes on" 0
holds "and is done" is_png "$work/label.png"
complains "it says what is amiss" "There is no apt-get here."
complains "it names what is needed to build" "libfreetype-dev"
complains "and to show" "fonts-liberation"
equal "it says so once" "$(grep -c 'There is no apt-get' "$err")" 1

run "$tesela" test native -R no-test-has-this-name
exits "a name that no test has is no success" failing
complains "it names what the tests need" "googletest"

finish_checks
