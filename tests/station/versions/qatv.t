#: Tells the version of this program, in the short form that stations compare.
#: qatv | its number and its name

the version is told without its mark
  #:
  send     qatv -> QATV:8842-1170, s_qat_korvat_1_32_2_5_b,OK
  send     qatv? -> QATV:8842-1170, s_qat_korvat_1_32_2_5_b,OK

it takes no value, and what it is
  send     qatv=1 -> qatv                                                        version(),SYNTAX
  send     qatv=? -> QATV:QAT version,qatv                                                        version(),OK
