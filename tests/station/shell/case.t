#: Says or sets whether upper and lower case of command names differ.
#: case? | the present setting, `true` or `false`; so do `case` and `case=`
#: case=EN | 1: names are matched as typed and answered as typed. Anything else (0): names in a line are folded to
#:   lower case, names in an answer to upper case. A phone starts with 0. Answers with the new setting
#: Values of a line keep their case in either setting.

a new phone folds
  #:
  send     case? -> CASE:false,OK
  send     CASE? | case -> CASE:false,OK
  # a read changes nothing, whatever its value
  send     case?1 -> CASE:false,OK

with 1 names are matched as written, and answered so
  #:
  send     case=1 -> case:true,OK
  send     CASE? -> NOT FOUND
  send     case? -> case:true,OK
  send     case=0 -> CASE:false,OK

anything but 1 is 0
  send     case=1 -> case:true,OK
  send     case=2 -> CASE:false,OK
  send     case=0x1 -> case:true,OK
  send     case=-1 -> CASE:false,OK

the test form is the usage line alone, and a line that doesn't fit gets it too
  send     case=? -> case      [(0,1)]                                           case(en),OK
  send     case=1,2 -> case      [(0,1)]                                           case(en),SYNTAX
  send     case=on -> case      [(0,1)]                                           case(en),SYNTAX
  send     case=?on -> case      [(0,1)]                                           case(en),SYNTAX

only digits and the letter X make a number
  # F ends it before it has begun: 0 and something left over
  send     case=F -> case      [(0,1)]                                           case(en),SYNTAX
  # an X discards what came before: 5X1 is 1
  send     case=5x1 -> case:true,OK
  # prefix characters don't matter to a plain number
  send     case=**&&0 -> CASE:false,OK
