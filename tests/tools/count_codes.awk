# Counts the elements of each code, independently of the library: reads a classificator file and
# then descriptions, and prints each code with its number of elements. Supports only the part of the
# format that the sample files use: a ==MAPTEXT section split at line ends, and letters that
# `toupper` folds.
#
#   awk -f count_codes.awk CLASSIFICATOR DESCRIPTIONS

function trim(text) { gsub(/^[ \t\r]+|[ \t\r]+$/, "", text); return text }

FNR == NR {
  line = trim($0)
  if (line ~ /^==/) { inside = line ~ /^==MAPTEXT/; next }
  if (!inside || line == "" || line ~ /^[\/!]/ || line ~ /^@[@$]/) next
  if (line ~ /^\$/) { split(trim(substr(line, 2)), words, " "); fallback = words[1]; next }
  if (line ~ /^@/) { sub(/^@ */, "", line); sub(/[ {\[].*/, "", line); code = line; next }
  ++patterns
  codes[patterns] = code
  lengths[patterns] = split(toupper(line), words, /[ ]/)
  for (i = 1; i <= lengths[patterns]; ++i) tokens[patterns, i] = words[i]
  if (lengths[patterns] > longest) longest = lengths[patterns]
  next
}

function fits(pattern, count,    i) {
  if (lengths[pattern] > count) return 0
  for (i = 1; i <= lengths[pattern]; ++i)
    if (substr(input[i], 1, length(tokens[pattern, i])) != tokens[pattern, i]) return 0
  return 1
}

function lookup(count,    length_, pattern) {
  for (length_ = 1; length_ <= longest && length_ <= count; ++length_)
    for (pattern = 1; pattern <= patterns; ++pattern)
      if (lengths[pattern] == length_ && fits(pattern, count)) return codes[pattern]
  return fallback
}

{
  # Elements of one type differ only in their ids, which no pattern matches.
  type = toupper($0)
  sub(/:[0-9]+$/, ":", type)
  if (!(type in found)) found[type] = lookup(split(type, input, /[ ]/))
  ++elements[found[type]]
}

END { for (code in elements) print code "\t" elements[code] }
