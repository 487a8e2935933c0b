#: Tests the removable memory card: detects, reads, writes, erases and formats it.
#: mstt=0 | whether a card is in: `0x1` or `0x0`; so does `mstt=1,0`
#: mstt=1 | its size in MiB, decimal, 0 without a card; so does `mstt=1,1`
#: mstt=2,2,"FOLDER" | the names in a folder of the card, `NAME,NAME,`, at most 1024 bytes
#: mstt=2,3,"FILE" | the text of a file, its first 1024 bytes
#: mstt=3,1,"FILE","TEXT" | writes the text to a file; answers with an empty line
#: mstt=4,1,"FILE" | deletes a file
#: mstt=4,2 | erases the card: nothing can be mounted until it is formatted
#: mstt=4,3 | formats the card with the kind of FAT that fits its size; a size that can't be formatted is `ERROR`
#: mstt=5,1 | mounts the card at /sdcard and leaves it so, which makes the next command that needs a file fail
#: mstt=5,0 | unmounts it; never an error
#: Every other command mounts the card for itself and unmounts it. What fails is `ERROR` with no line; a path that is
#: missing or empty is `SYNTAX`. Paths begin at the card's root, with or without `/`.
# The card is mounted for each operation and left unmounted. Raw replies end in a comma, which the status follows.

a card is detected by its line, and its size is told in MiB
  send     mstt -> MSTT:MSTT - uSD test command,OK
  send     mstt=0 -> MSTT:0x1,OK
  send     mstt=1 -> MSTT:15193,OK
  phone    card -> in 15193 MiB
  phone    card out | card -> out 15193 MiB
  send     mstt=0 -> MSTT:0x0,OK
  send     mstt=1 -> MSTT:0,OK

a file is written, read, listed and deleted
  #:
  send     mstt=3,1,"a.txt","hello" -> MSTT:,OK
  #:
  send     mstt=2,3,"/a.txt" -> MSTT:hello,OK
  send     mstt=2,2,"/" -> MSTT:.,..,a.txt,OK
  send     mstt=4,1,"a.txt" -> MSTT:,OK
  phone    shell 1 -> 0 /system/bin/rm /sdcard/a.txt
  send     mstt=2,3,"a.txt" -> ERROR

a file of more than 1024 bytes is read as its first 1024
  send     mstt=3,1,"long","\*64{0123456789abcdef}beyond" -> MSTT:,OK
  send     mstt=2,3,"long" -> MSTT:\*64{0123456789abcdef},OK

a mounted card makes the next operation's own mount fail
  send     mstt=5,1 -> MSTT:,OK
  send     mstt=3,1,"a","b" -> ERROR
  send     mstt=5,0 -> MSTT:,OK

formatting takes the kind of file system that fits the size
  phone    card size 1999
  send     mstt=4,3 -> MSTT:,OK
  phone    card size 31999
  send     mstt=4,3 -> MSTT:,OK
  phone    shell 4 -> 0 newfs_msdos -F 16 -O android /dev/block/mmcblk1p1\n0 fsck_msdos -p -f /dev/block/mmcblk1p1\n0 newfs_msdos -F 32 -O android /dev/block/mmcblk1p1\n0 fsck_msdos -p -f /dev/block/mmcblk1p1

a size that can't be formatted
  phone    card size 2000
  send     mstt=4,3 -> ERROR
  phone    shell 1 -> 0 echo 1 > /dev/wcnss_wlan

a mounted card is unmounted before it is formatted
  send     mstt=5,1 | mstt=4,3 | mstt=5,1 -> MSTT:,OK

erasing takes the file system away
  send     mstt=3,1,"a","b" | mstt=4,2 -> MSTT:,OK
  phone    shell 1 -> 1 /system/bin/dd if=/dev/zero of=/dev/block/mmcblk1p1

erasing asks neither for the card nor for a mount: the tool is run, and finds nothing
  phone    card out
  send     mstt=4,2 -> ERROR
  phone    shell 1 -> 1 /system/bin/dd if=/dev/zero of=/dev/block/mmcblk1p1

values behind those of a row are a syntax error, and the card isn't touched
  send     mstt=3,1,"a.txt","hello" -> MSTT:,OK
  send     mstt=4,2,"a.txt" | mstt=4,3,"x" | mstt=4,1,"a.txt","y" | mstt=4,1,"a.txt", -> SYNTAX
  send     mstt=1,1,"x" | mstt=5,1,"x" | mstt=2,2,"/","x" | mstt=2,3,"a.txt","x" -> SYNTAX
  phone    shell 1 -> 0 echo 1 > /dev/wcnss_wlan
  send     mstt=2,3,"a.txt" -> MSTT:hello,OK

a name that no file can have is an error
  send     mstt=4,1,"\*256{a}" | mstt=2,3,"\*256{a}" | mstt=3,1,"\*256{a}","b" -> ERROR

a card that can't be unmounted, written or read is told
  phone    fail umount /sdcard
  send     mstt=3,1,"a","b" -> ERROR
  send     mstt=2,3,"a" -> MSTT:b,OK
  phone    fail write /sdcard/a
  send     mstt=3,1,"a","b" -> ERROR
  send     mstt=3,1,"a","c" -> MSTT:,OK
  phone    fail read /sdcard/a
  send     mstt=2,3,"a" -> ERROR

a missing path is a syntax error, and the help
  send     mstt=2,2 -> SYNTAX
  send     mstt=? -> MSTT:uSD test,mstt      (0-0xFF)[,(0-0xFF)[,(...)]]                       mstt(act,sub_act,path,txt),OK
