#: Tells the revision records of this program.
#: rev | all of them, each `NAME: TEXT`, the latest first
#: rev="NAME" | one record; names are those that `rev=?` lists, matched whole and by case. An unknown one is `ERROR`
#: rev=? | the names

one record by its name
  #:
  send     rev="space_num" -> REV:space_num: 8842-1170,OK
  send     rev?"vmrk_rev" -> REV:vmrk_rev: @(#) s_qat_korvat_1_32_2_5_b,OK

an unknown record is an error, and names are matched whole and by case
  send     rev="nosuch" | rev="space" -> ERROR

a name without quotes is a syntax error, and the help
  send     rev=nosuch -> rev       (name)                                            revision(object),SYNTAX
  send     rev=? -> REV:space_num,REV:bld_time,REV:bld_date,REV:vmrk_rev,
  + rev       (name)                                            revision(object),OK
