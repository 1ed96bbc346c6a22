#g on
alias y { /* note
  todo: more */ echo y }
#g end
menu channel {
  .x:{ echo }
}
ctcp 1:ping:{ halt }
raw 001:*:{ echo $1- }
