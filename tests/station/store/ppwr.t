#: Writes a production parameter.
#: ppwr=0,TEXT | TEXT is the rest of the line as it stands, of which 10 characters are kept. Answers with an empty
#:   line
#: ppwr=3,NUMBER | a decimal number; this board has no unit for it, which is `ERROR`

a text is cut to ten characters and stored without an end
  #: Three characters too many (`ppre` gives `ABCDEFGHIJ` from now on):
  send     ppwr=0,ABCDEFGHIJKLM -> PPWR:,OK
  phone    unit 80001324 -> 4142434445464748494A
  send     ppre -> PPRE:ABCDEFGHIJ,OK
  send     ppwr=0,A b,"c" -> PPWR:,OK
  phone    unit 80001324 -> 4120622C226322
  restart
  send     ppre -> PPRE:A b,"c",OK

the number has no unit on this board, and the help
  send     ppwr=3,4711 -> PPWR:,ERROR
  send     ppwr=? -> PPWR:Production Parameter Write,ppwr      (0,3),S                                           ppwr(),OK

other numbers, and a line without a text, are syntax errors
  send     ppwr=1,A | ppwr -> PPWR:,SYNTAX
  phone    unit 80001324 -> 42583930334C374B3254

a store that fails is an error and keeps the text
  phone    fail auxnvq_write_unit
  send     ppwr=0,NEW -> PPWR:,ERROR
  phone    unit 80001324 -> 42583930334C374B3254
