! What a printer answers, and the defaults of its status monitoring.
!
! Status.Default.JobMonitoring  jobs of a new printer are watched
! Status.Default.StatusMonitor  the status monitor starts when the printer is installed
! Status.Ports                  ports over which status is asked: Serial, Parallel, USB, TCP/IP, Firewire
! ~Commands.U1                  knows the U1 commands: reset, diagnostics, power, variables
! ~RTC                          has a clock that stamps date and time on the label

[.default]
Status.Default.JobMonitoring=No
Status.Default.StatusMonitor=No
Status.Ports=USB
~Commands.U1=No
~RTC=No

[Mobile]
Status.Ports=Serial,USB

[Mobile U1]
Status.Ports=Serial,USB,TCP/IP
~Commands.U1=Yes
~RTC=Yes

[Desktop]
Status.Default.JobMonitoring=Yes
Status.Ports=Serial,Parallel,USB,TCP/IP

[Desktop Clock]
Status.Default.JobMonitoring=Yes
Status.Ports=Serial,Parallel,USB,TCP/IP
~RTC=Yes

[Network]
Status.Default.JobMonitoring=Yes
Status.Default.StatusMonitor=Yes
Status.Ports=USB,TCP/IP,Firewire
