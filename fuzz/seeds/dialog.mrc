dialog d {
  title "x"
  size -1 -1 10 10
  button "a", 1, 1 1 1 1, ok
}
