alias x {
  echo $a(b,c).d | if (%a == 1) { echo x }
}
