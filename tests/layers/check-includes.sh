#!/usr/bin/env bash
# Fails when a file includes a header of a folder that its folder's library
# does not link. layers.txt (written by CMake) holds one line per folder:
# "folder: the folders it may include".
#   check-includes.sh LAYERS_FILE SOURCE_DIR
set -uo pipefail
layers=$1
cd "$2" || exit 2

declare -A allowed
folders=()
while IFS=': ' read -r folder rest; do
  [ -n "$folder" ] || continue
  folders+=("$folder")
  allowed[$folder]=" $rest "
done < <(sed 's/: /:/' "$layers" | tr ':' ' ')

# The folder a header path lies in: the longest known folder that holds it.
folder_of() {
  local path=$1 best=""
  for folder in "${folders[@]}"; do
    case "$path" in "$folder"/*) [ ${#folder} -gt ${#best} ] && best=$folder ;; esac
  done
  printf '%s' "$best"
}

failures=0
checked=0
for folder in "${folders[@]}"; do
  for file in "$folder"/*.h "$folder"/*.cpp; do
    [ -f "$file" ] || continue
    checked=$((checked + 1))
    while IFS= read -r header; do
      owner=$(folder_of "$header")
      [ -n "$owner" ] || continue
      if [[ "${allowed[$folder]}" != *" $owner "* ]]; then
        echo "$file includes \"$header\", but $folder does not link $owner"
        failures=$((failures + 1))
      fi
    done < <(sed -n 's/^[[:space:]]*#[[:space:]]*include[[:space:]]*"\([^"]*\)".*/\1/p' "$file")
  done
done
echo "checked the includes of $checked files: $failures out of place"
[ "$failures" -eq 0 ]
