alias x {
  | | | | | | | | | | | | | | | | | | | | echo $a($b(1,2).c) {
  if ((%a == 1) && ($b(2) isin %c)) { return }
}
