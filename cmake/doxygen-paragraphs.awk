# What the reference is made from: in the headers one comment stands for all members of a paragraph,
# a pair of setter and getter most often; here each gets it. Lines keep their numbers.
function indent(line) {
  match(line, /^ */)
  return RLENGTH
}
# Special members that are as the compiler makes them.
/= default;$/ { $0 = $0 " ///< As the compiler makes it."; }
/^ *\/\/\// {
  if (!open) comment = ""
  open = 1
  text = $0
  sub(/^ *\/\/\/ ?/, "", text)
  comment = comment (comment == "" ? "" : " ") text
  level = indent($0)
  members = 0
  print
  next
}
{ open = 0 }
/^ *$/ || /^\}/ || /^ *(private|protected|public|#|enum|struct|class|friend)/ { comment = "" }
# A member begins at the level of the comment, after one that has ended.
comment != "" && indent($0) == level && $0 !~ /^ *(\/\/|\}|\))/ {
  if (members > 0 && ended) {
    match($0, /^ */)
    $0 = substr($0, 1, level) "/** " comment " */ " substr($0, level + 1)
  }
  members++
}
{
  ended = /[;}] *(\/\/.*)?$/
  print
}
