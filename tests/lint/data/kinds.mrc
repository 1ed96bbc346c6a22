; One report of each kind the analyser files, printed as in kinds.expected.
rem an old comment
alias kinds {
  var -x %a = 1
  echo -a $calc(1 +
  ; todo: one
  ; hack: two
  ; xxx: three
  ; fixme: four
  ; note: five
  echo -a $asc(a).
}
