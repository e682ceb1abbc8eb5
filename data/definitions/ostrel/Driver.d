! One section for each driver name, exactly as the installation script spells it. It leads to the
! maker's section in Manufacturer.d and to the model's section in Model.d.
!
! A key with a maker code behind it, as "(KD)", stands for the plain key on that maker's drivers.

[.default]
Manufacturer=Manufacturer:Vantrel
Manufacturer(KD)=Manufacturer:Keldrum

[Ostrel M2 Mobile]
Model=Model:M2

[Ostrel M4 Mobile]
Model=Model:M4

[Ostrel D4-203]
Model=Model:D4-203

[Ostrel D4-300]
Model=Model:D4-300

[Ostrel R4 RFID]
Model=Model:R4

[Ostrel R4-HF RFID]
Model=Model:R4-HF

[Ostrel C4 Colour]
Model=Model:C4
