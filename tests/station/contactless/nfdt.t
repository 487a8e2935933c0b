#: Looks for a card before the PN65's antenna.
#: nfdt | 0 for none, which takes two seconds, 1 for one, 2 for several. `ERROR` when a frame before the search fails; the
#:   second chip has no such search: `NOT FOUND`

none, one and several cards
  phone    speed 20
  send     nfdt -> NFDT:NFC is not yet powered up,ERROR
  send     nfpu -> NFPU: ,OK
  send     nfdt -> NFDT:0,OK
  phone    tag a
  #: A card lies there:
  send     nfdt -> NFDT:1,OK
  phone    tag v f
  send     nfdt -> NFDT:2,OK
  phone    tag none
  send     nfdt -> NFDT:0,OK
  phone    tag b b
  send     nfdt -> NFDT:2,OK
  # a search that found nothing leaves the driver one number ahead, and all goes on
  send     nfrr=0x9810 -> NFRR:0xBC,OK
  send     nfdt=? -> NFDT:NFC Detect tag,nfdt                                                        NFC Detect tag,OK
  send     nfdt=1 -> nfdt                                                        NFC Detect tag,SYNTAX

the frames of a search
  send     nfpu -> NFPU: ,OK
  phone    tag a
  send     nfdt -> NFDT:1,OK
  phone    pn65 recent 38 -> 08A4811020001363A1\n03C58EB4\n05AD8203C6EF\n03C61586\n08B6811020001197C8\n03C79C97\n05BF830333C6\n03C023E3\n088081102000141040\n03C1AAF2\n058984034CDB\n03C231C0\n08928110200030D06D\n03C3B8D1\n059B8503B9F2\n03C407A5\n07A48301010865EB\n03C58EB4\n08AD8110200094A774\n03C61586\n05B686039524\n03C79C97\n08BF8110150015D314\n03C023E3\n058087033A6D\n03C1AAF2\n088981101200124333\n03C231C0\n05928803DFDE\n03C3B8D1\n079B8601067F2F71\n03C407A5\n06A48602068DA8\n03C58EB4\n07AD82011000BBA6\n03C61586\n05B684503B77\n03C79C97

a frame that fails before the search
  phone    speed 100
  send     nfpu -> NFPU: ,OK
  phone    pn65 8303 silent 1
  send     nfdt -> NFDT: ,ERROR
  phone    pn65 860206 silent 1
  send     nfdt -> NFDT: ,ERROR

the second chip has no search
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfdt -> NFDT: ,NOT FOUND
