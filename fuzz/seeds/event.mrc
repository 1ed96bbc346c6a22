on *:text:*hi*:#:{ msg $chan $iif(($nick isop $chan), op, no) }
#g on
#g end
