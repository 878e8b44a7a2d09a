#include "catalogue/Records.h"

void CMediaRecord::Dump(std::ostream&) const {}

void CMediaFile::Dump(std::ostream& out) const {
  out << "MF_Dump: VolID=" << VolID << "; PathID=" << PathID << "; File=" << FileName
      << "; Title=" << Title << "; Artist=" << Artist << "; comment=" << Comment;
}

void CMediaPath::Dump(std::ostream& out) const {
  out << "MP_Dump: PathID=" << PathID << "; VolID=" << VolID << "; FullPath=" << FullPath;
}

void CMediaVolume::Dump(std::ostream& out) const {
  out << "MV_Dump: VolID=" << VolID << "; Name=" << Name << "; Type=" << VolType
      << "; SN=" << SerialNo;
}
