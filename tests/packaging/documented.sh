#!/usr/bin/env bash
# That the manual page and the completion of a program have all that its --help has, and that the files of a release
# agree on the version: SOURCES PROGRAM
set -euo pipefail
sources=$1 program=$2
name=$(basename "$program")
failed=0

fail() {
  echo "packaging: $1" >&2
  failed=1
}

PATH=$(dirname "$program"):$PATH
# shellcheck disable=SC1091
source /usr/share/bash-completion/bash_completion
# shellcheck disable=SC1090
source "$sources/packaging/completions/$name"

# What is offered behind these words, the last of which is begun.
complete_words() {
  COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMP_LINE="$*" COMP_POINT=${#COMP_LINE} COMPREPLY=()
  "_${name//-/_}" "$name" "${*: -1}" "${*: -2:1}" || true
  printf '%s\n' "${COMPREPLY[@]}"
}

mapfile -t pages < <(find "$sources/packaging/man" -name "$name.*")
((${#pages[@]})) || fail "$name has no manual page"
declare -A bold  # what each has in its headings and in bold type
for page in "${pages[@]}"; do
  bold[$page]=$(sed -nE 's/\\//g; /^\.(SS|B|BI|BR) /p' "$page")
done
explain() {
  local page
  for page in "${pages[@]}"; do
    [[ ${bold[$page]}$'\n' =~ [[:space:]]$1[~,[:space:]] ]] || fail "$page does not explain $1"
  done
}

# A command with its options, their values, and the commands below it.
check() {
  local help options option value commands command said
  help=$("$program" "${@:2}" --help)
  options=$(grep -oP '^  (-\w,)?\K--[\w-]+' <<<"$help")
  [[ $options == "$(complete_words "$@" --)" ]] || fail "options of $*: $(complete_words "$@" --)"
  for option in $options; do
    explain "$option"
    grep -qE "^  $option (WORD|FORMAT|MM|TEXT:\{)" <<<"$help" || continue
    [[ -n $(complete_words "$@" "$option" "") ]] || fail "no values of $option of $* are offered"
    for value in $(complete_words "$@" "$option" ""); do
      said=$("$program" "${@:2}" "$option" "$value" --dir /nowhere 2>&1 || true)
      [[ $said != *"not in"* ]] || fail "$option of $* is offered $value: $said"
    done
    said=$("$program" "${@:2}" "$option" no-such-value --dir /nowhere 2>&1 || true)
    [[ $said == *"not in"* ]] || fail "$option of $* takes anything"
  done
  commands=$(sed -n '/^Subcommands:$/,/^$/s/^  \([a-z]*\) .*/\1/p' <<<"$help")
  [[ $commands == "" || $commands == "$(complete_words "$@" "")" ]] ||
    fail "commands of $*: $(complete_words "$@" "")"
  for command in $commands; do
    explain "$command"
    check "$@" "$command"
  done
}
check "$name"

version=$("$program" --version)
version=${version##* }
[[ $(head -1 "$sources/debian/changelog") == "zendara ($version) "* ]] || fail "debian/changelog is not of $version"
[[ $(grep -m1 '<release ' "$sources"/packaging/*.metainfo.xml) == *"\"$version\""* ]] ||
  fail "the release notes are not of $version"
exit $failed
