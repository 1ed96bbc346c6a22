; A little of everything the server answers about.
alias greet {
  var %n = $gettok($1-, 1, 32)
  echo -a $calc(1 + $len(%n)) $chan(#).topic
  ; todo: say it in colour
}
#tools on
alias -l tidy { return $upper($1) }
on *:text:*hi*:#:{
  msg $chan hello
}
#tools end
dialog setup {
  title "Setup"
}
