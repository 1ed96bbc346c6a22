; ---------------------------------------------------------------------------
; awaykit.mrc - an away system, channel helpers and a small settings dialog.
;
; Load it with /load -rs awaykit.mrc and open the settings with /awaykit.
; Everything it keeps lives in the %awaykit.* variables.
; ---------------------------------------------------------------------------

/*
  Layout of this file:
    1. settings and helpers
    2. the away system
    3. channel helpers (group #chantools)
    4. the settings dialog
  todo: the helpers in part 3 still assume one network
*/

; --- 1. settings and helpers -----------------------------------------------

rem Older copies kept these settings in awaykit.ini; they are read no more.

alias -l awaykit.default {
  ; Fills a setting only when it is not set yet.
  if ($1 == $null) { return }
  if (%awaykit. [ $+ [ $1 ] ] == $null) {
    set %awaykit. $+ $1 $2-
  }
}

alias awaykit.init {
  awaykit.default reason Gone for a while
  awaykit.default nick $me $+ |away
  awaykit.default notify on
  awaykit.default logdir $mircdir $+ awaylogs
  awaykit.default idle 900
  if (!$isdir(%awaykit.logdir)) { mkdir $qt(%awaykit.logdir) }
}

alias -l awaykit.log {
  ; $1 = target, $2- = text
  var %file = $+(%awaykit.logdir,\,$1,.log)
  write $qt(%file) $asctime($ctime,yyyy-mm-dd HH:nn:ss) $2-
}

alias awaykit.say {
  ; Shows a line in the active window, with the script's tag in front.
  echo -a $chr(3) $+ 12[awaykit] $+ $chr(15) $1-
}

alias awaykit.plural return $iif($1 == 1,$1 $2,$1 $2 $+ s)

alias awaykit.duration {
  var %secs = $1, %out
  if (%secs >= 3600) {
    %out = $awaykit.plural($int($calc(%secs / 3600)),hour)
    %secs = $calc(%secs % 3600)
  }
  if (%secs >= 60) {
    %out = %out $awaykit.plural($int($calc(%secs / 60)),minute)
    %secs = $calc(%secs % 60)
  }
  if (%secs > 0) || (%out == $null) {
    %out = %out $awaykit.plural(%secs,second)
  }
  return %out
}

; --- 2. the away system ----------------------------------------------------

alias away {
  if ($away) {
    awaykit.say You are already away: $awaymsg
    return
  }
  var %reason = $iif($1-,$1-,%awaykit.reason)
  set %awaykit.since $ctime
  set %awaykit.oldnick $me
  set %awaykit.missed 0
  scid -a away %reason
  if (%awaykit.nick) { nick %awaykit.nick }
  if (%awaykit.notify == on) {
    ; xxx: amsg reaches every channel, moderated ones too
    scid -a amsg is away: %reason
  }
  awaykit.say Away since $time $+ : %reason
}

alias back {
  if (!$away) {
    awaykit.say You are not away.
    return
  }
  var %gone = $awaykit.duration($calc($ctime - %awaykit.since))
  scid -a away
  if (%awaykit.oldnick) { nick %awaykit.oldnick }
  if (%awaykit.notify == on) {
    scid -a amsg is back after %gone
  }
  awaykit.say Back after %gone $+ , %awaykit.missed $iif(%awaykit.missed == 1,message,messages) logged.
  unset %awaykit.since %awaykit.oldnick
}

alias awaykit.toggle {
  if ($away) { back }
  else { away $1- }
}

on *:start:{
  awaykit.init
  .timerawaykit.idle 0 60 awaykit.checkidle
}

on *:exit: .timerawaykit.* off

alias -l awaykit.checkidle {
  ; fixme: $idle is per connection, this only looks at the active one
  if (!$away) && ($idle >= %awaykit.idle) {
    away Idle for $awaykit.duration($idle)
  }
}

on *:text:*:?:{
  if (!$away) { return }
  inc %awaykit.missed
  awaykit.log $nick $1-
  if (!$window($nick).sbcolor) {
    .msg $nick I am away ( $+ $awaymsg $+ ), your message has been logged.
  }
}

on *:text:*$me*:#:{
  if ($away) {
    inc %awaykit.missed
    awaykit.log $chan < $+ $nick $+ > $1-
  }
}

on *:action:*:?,#: {
  if ($away) && ($me isin $1-) { awaykit.log $iif($chan,$chan,$nick) * $nick $1- }
}

on *:notice:*:?:{ if ($away) { awaykit.log $nick - $+ $nick $+ - $1- } }

on ^*:open:?:*: {
  ; Keeps query windows closed while away; the message is logged above.
  if ($away) { halt }
}

on *:input:*: {
  if ($left($1,1) == /) || ($ctrlenter) { return }
  if ($away) && (%awaykit.autoback == on) { back }
}

on *:connect: {
  if (%awaykit.since) {
    away $iif($awaymsg,$awaymsg,%awaykit.reason)
  }
}

on *:disconnect: awaykit.say Disconnected from $network $+ .

; --- 3. channel helpers ----------------------------------------------------

#chantools on

alias -l chantools.isop return $iif($me isop $1,$true,$false)

alias kb {
  ; /kb <nick> [reason]: kick and ban in the active channel
  if ($active !ischan) {
    awaykit.say /kb only works in a channel.
    return
  }
  if (!$chantools.isop($active)) {
    awaykit.say You are not an operator on $active $+ .
    return
  }
  var %mask = $address($1,2)
  if (%mask == $null) { %mask = $1 $+ !*@* }
  mode $active +b %mask
  kick $active $1 $iif($2-,$2-,Requested)
}

alias massvoice {
  var %i = 1, %n = $nick($active,0,r)
  while (%i <= %n) {
    mode $active +vvvv $nick($active,%i,r) $nick($active,$calc(%i + 1),r) $&
      $nick($active,$calc(%i + 2),r) $nick($active,$calc(%i + 3),r)
    inc %i 4
  }
}

on *:join:*: {
  if ($nick == $me) { return }
  if ($chantools.isop($chan)) && ($ulevel >= 10) {
    .timer 1 2 mode $chan +o $nick
  }
}

on @*:op:#,#help: {
  if ($opnick == $me) { awaykit.say Opped on $chan by $nick $+ . }
}

on *:kick:#: {
  if ($knick == $me) {
    awaykit.say Kicked from $chan by $nick ( $+ $1- $+ )
    ; hack: rejoin at once, a ban will stop it anyway
    join $chan
  }
}

on *:topic:#:awaykit.log $chan * topic by $nick $+ : $chan($chan).topic

on *:dialog:awaykit:sclick:*: { awaykit.dlgclick $did }

#chantools end

; --- 4. the settings dialog ------------------------------------------------

alias awaykit {
  if ($dialog(awaykit)) { dialog -v awaykit }
  else { dialog -m awaykit awaykit }
}

dialog -l awaykit {
  title "awaykit settings"
  size -1 -1 180 120
  option dbu

  box "Away", 1, 4 4 172 60
  text "Reason:", 2, 10 16 30 8
  edit "", 3, 42 14 128 10, autohs
  text "Away nick:", 4, 10 30 30 8
  edit "", 5, 42 28 60 10
  check "Tell the channels", 6, 10 44 80 10
  check "Come back on input", 7, 92 44 80 10

  ; todo: offer minutes as well as seconds
  text "Idle after:", 8, 10 70 30 8, left
  edit "", 9, 42 68 30 10, right
  combo 10, 80 68 50 40, drop

  button "OK", 100, 84 104 44 12, ok
  button "Cancel", 101, 132 104 44 12, cancel
}

on *:dialog:awaykit:init:0: {
  did -a awaykit 3 %awaykit.reason
  did -a awaykit 5 %awaykit.nick
  if (%awaykit.notify == on) { did -c awaykit 6 }
  if (%awaykit.autoback == on) { did -c awaykit 7 }
  did -a awaykit 9 %awaykit.idle
  didtok awaykit 10 44 seconds,minutes
  did -c awaykit 10 1
}

on *:dialog:awaykit:sclick:100: {
  set %awaykit.reason $did(3)
  set %awaykit.nick $did(5)
  set %awaykit.notify $iif($did(6).state,on,off)
  set %awaykit.autoback $iif($did(7).state,on,off)
  var %idle = $did(9)
  if ($did(10).sel == 2) { %idle = $calc(%idle * 60) }
  set %awaykit.idle %idle
  awaykit.say Settings saved.
}

alias -l awaykit.dlgclick {
  if ($1 == 101) { awaykit.say Nothing changed. }
}

on *:unload: {
  .timerawaykit.* off
  unset %awaykit.*
}
